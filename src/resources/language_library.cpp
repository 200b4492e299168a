#include "resources/version.h"

/// The version that the module compares with the one it requires; exported without decoration.
extern "C" double __cdecl GetDLLVersion() {
    return ORVELL_VERSION_NUMBER(ORVELL_LANGUAGE_VERSION);
}
