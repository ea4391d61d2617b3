// The version of the program, for its resources, the build and the names of the packages. Only what
// the resource compiler understands may stand here; the build refuses two lines that differ. The
// version box says it in its own words, see help/help_commands.cpp.
#pragma once

#define WRENDECK_VERSION_TEXT "4.4.2"
#define WRENDECK_VERSION 4, 4, 2, 0
