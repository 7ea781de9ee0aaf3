# Another program has the receiver.
plug_in
settings tunertype 1
exec 4<>"$tuner/frontend0"
scan busy --tune "11362 H 27500"
exec 4>&-
