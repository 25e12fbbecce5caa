// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLFontsReadAhead.h"

#ifdef AQUILANE_HAS_FONTCONFIG
#include <fontconfig/fontconfig.h>

std::future<void> PLReadFontsAhead()
{
    // It counts as read for the whole process, and a second thread that asks for it meanwhile is served too.
    return std::async(std::launch::async, [] { FcInit(); });
}
#else
std::future<void> PLReadFontsAhead()
{
    return {};
}
#endif
