// Numbers of the program's resources, for the resource script and the code. Only what the resource
// compiler understands may stand here.
#pragma once

// The system shows the icon with the lowest number as the program's own.
#define IDI_WRENDECK 1

// The image of the toolbar's button number n is IDI_TOOLBAR + n.
#define IDI_TOOLBAR 200
