// The toolkit's application: started with the first window, shared with whoever started it before.
#pragma once

// False, and nothing started, when no display can show a window or when this is not the thread of the application that
// is there. The toolkit itself would end the process, so the display is tried beforehand.
bool startApplication();
