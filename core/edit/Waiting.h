// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/FetchedText.h"
#include "platform/services/Services.h"
#include <QString>
#include <functional>

struct Application;

// Work that takes long: the bar that appears by itself, and the parsing that still can be stopped.
namespace edit {

/// Told how much of a part is done; false when the user cancelled. A total of 0: unknown.
using WaitStep = std::function<bool(qint64 done, qint64 total)>;

/// The bar of one long work; it goes with the object.
class Waiting {
public:
    Waiting(Application& app, const QString& what);
    ~Waiting();
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;
    /// The steps of a part of the work, from one thousandth of the whole to another.
    WaitStep Step(int from, int to);
    void Hide(); ///< a box is to come; the bar is there again with a later step
    void LastStretch() { progress_.LastStretch(); } ///< what is left can't be cancelled

private:
    services::Progress& progress_;
    QString what_;
};

/// Parses a text while there is still something to go back to: the window that takes it can't be stopped
/// half-way. False when the user cancelled. A blank text is left alone.
bool ParseAhead(Application& app, FetchedText& fetched, const WaitStep& step);

} // namespace edit
