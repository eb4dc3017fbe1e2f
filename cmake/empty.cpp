// A precompiled-header donor needs one source file.
