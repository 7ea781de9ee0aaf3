# Ctrl+C while a lock is awaited, and while tables are, that do not come.
plug_in complete_nit=1

press_ctrl_c() {
    sleep 1
    pressed=$(clock)
    kill -INT "$tool"
    finish
    took=$(($(clock) - pressed))
    [ $took -le 200 ] && echo "ended within 2 s" || echo "ended after $took hundredths of a second"
}

settings tunertype 1 locklimit 30
start tuning --tune "12187 H 27500"
until_true has_open frontend0
press_ctrl_c

start reading --tune "11362 H 27500" --tables all
until_true has_open demux0
press_ctrl_c
