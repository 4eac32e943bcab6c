// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <libxml/parser.h>

namespace xml {

class Loader;

/// The parser library's callbacks for a Loader: plain functions that hand on to it, let no exception through
/// the library's frames, and hand on nothing once the parse is lost.
struct LoaderEvents {
    static xmlSAXHandler Handlers();
    static int Read(void* loader, char* buffer, int room);
    static void Error(void* loader, xmlError* error);

private:
    static void RunOut(Loader& loader); ///< of memory
    template <typename Act> static void Do(void* loader, Act act);
};

} // namespace xml
