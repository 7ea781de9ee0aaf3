# A channel that is not there; the receiver tries two delivery systems.
plug_in
settings tunertype 1 locklimit 2
scan nothing --tune "12187 H 27500"
