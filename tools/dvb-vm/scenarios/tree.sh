# Everything that vidtv sends, and every field of it.
plug_in complete_nit=1
settings tunertype 1
scan all --tune "11362 H 27500" --tables all
scan values --tune "11362 H 27500" --tables pat,nit,sdt,pmt,eit-pf --format values
