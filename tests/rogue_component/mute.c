/* A library that is no component: it lacks the entry point. */
extern int tessaview_mute;
int tessaview_mute = 1;
