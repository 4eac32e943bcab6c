// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Application.h"
#include "core/model/Frame.h"

void ErrorReportBox(Application& app, const text::Fault& fault, const QString& routineName) {
    if (app.frame)
        app.frame->ErrorReportBox(fault, routineName);
}
