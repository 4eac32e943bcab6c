// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Application.h"
#include "core/model/NoFrame.h"

Application::Application(const services::Services& given)
    : services(given), noFrame_(std::make_unique<NoFrame>()), frame_(noFrame_.get()) {}

Application::~Application() = default;

void Application::SetFrame(Frame* frame) {
    frame_ = frame ? frame : noFrame_.get();
}

void ErrorReportBox(Application& app, const text::Fault& fault, const QString& routineName) {
    if (fault.Number != text::kFaultDeclined)
        app.frame().ErrorReportBox(fault, routineName);
}
