# What is recorded reads like the device itself, as a whole and by chosen PIDs.
plug_in complete_nit=1
record whole.ts
tessaview3-scan --quiet --log whole.log whole.ts >whole.tree
record chosen.ts "0, 0x10-0x11"
tessaview3-scan --quiet --log chosen.log chosen.ts >chosen.tree
rm ./*.ts
