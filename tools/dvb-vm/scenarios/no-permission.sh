# A user who does not belong to the group of the receivers.
plug_in
export HOME=/tmp/visitor
settings tunertype 1
chown -R visitor "$HOME" .
as_visitor() { su visitor -c ". /guest.sh; scan $1 --tune '11362 H 27500'"; }
as_visitor chosen
rm "$HOME/.config/tessaview3/settings.json"
as_visitor unknown
