# There is none, whether one was chosen in the settings or not.
plug_out
settings tunertype 1
scan chosen --tune "11362 H 27500"
rm "$HOME/.config/tessaview3/settings.json"
scan unknown --tune "11362 H 27500"
