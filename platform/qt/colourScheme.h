// Light or dark.
#pragma once

// The colours of the application: as KOLMA_COLOR_SCHEME=light or dark says, else as the desktop does.
void applyColourScheme();
