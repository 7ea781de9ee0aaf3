# The device goes away while tables are awaited that do not come; those that were there are kept,
# and it comes back.
plug_in complete_nit=1
settings tunertype 1
start kept --tune "11362 H 27500" --tables all
until_true has_open demux0
sleep 3
unplugged=$(clock)
echo vidtv.0 >/sys/bus/platform/drivers/vidtv/unbind &
finish
took=$(($(clock) - unplugged))
[ $took -le 300 ] && echo "ended within 3 s" || echo "ended after $took hundredths of a second"

plug_in complete_nit=1
scan again --tune "11362 H 27500" --tables pmt
