#include "smxdefs.h"

extern "C" {

const SmxLibraryVersion *smxGetLibVersion(void) {
    static const SmxLibraryVersion version = {
        5, 2, 108, 345, {'p', 'x', '\0', '\0'}, "libsmxpx.so.5.2", "5.2", "Jul 11 2007"};
    return &version;
}
}
