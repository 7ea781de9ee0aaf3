# The road of each kind of tuner, what a satellite list and a NIT lead to, and what was received
# last.
printf 'S 11362000 H 27500000 3/4\n' >Virtual-19.2E
tessaview3-scan --import-scan-table Virtual-19.2E

plug_in complete_nit=1
settings tunertype 1
scan satellite --mode satellite --satellite "Virtual 19.2E" --tables pmt,eit-pf
scan nit --mode nit --satellite "Virtual 19.2E" --tune "11362 H 27500" --tables pmt

settings tunertype 2
scan cable --tune "474 6900 64QAM" --tables pmt

settings tunertype 3
scan terrestrial --tune "474 8" --tables pmt
scan resumed --tables pmt

# As the kernel's source has it, the NIT cannot be decoded.
plug_in
settings tunertype 1
scan plain --tune "11362 H 27500" --tables pmt
scan nowhere --mode satellite --satellite "Virtual 19.2E" --tables pmt
