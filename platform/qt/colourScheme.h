// Light or dark.
#pragma once

// The colours of the application: as KOLMA_COLOR_SCHEME=light or dark says, else as the desktop does, also when the
// user changes it while windows are open. KOLMA_COLOR_SCHEME=desktop says so for windows that nobody sees, too.
void followColourScheme();
