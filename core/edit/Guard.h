// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>
#include <type_traits>

// The error exit of a routine: a fault is reported under the routine's name, and the routine ends with
// nothing as its result.
namespace edit {

template <typename Act> auto Guarded(Application& app, const QString& routine, Act act) -> decltype(act()) {
    try {
        return act();
    } catch (const text::Fault& fault) {
        ErrorReportBox(app, fault, routine);
        if constexpr (!std::is_void_v<decltype(act())>)
            return {};
    }
}

/// The name under which a window's routine reports: that of the window's kind stands in front.
QString RoutineName(const DocumentWindow& window, const char* routine);

template <typename Act>
auto Guarded(DocumentWindow& window, const char* routine, Act act) -> decltype(act()) {
    try {
        return act();
    } catch (const text::Fault& fault) {
        ErrorReportBox(window.app, fault, RoutineName(window, routine));
        if constexpr (!std::is_void_v<decltype(act())>)
            return {};
    }
}

} // namespace edit
