// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <QStringView>
#include <functional>

struct Application;

// Texts that are too large to stand in memory before they are written.
namespace edit {

/// Takes the next part of a text; false where no more is wanted. No surrogate pair is cut between two parts.
using TextSink = std::function<bool(QStringView)>;

/// Writes a text that `write` hands on part by part, as UTF-8, replacing the file whole or not at all. True
/// when it was written: `write` gives it up by returning false, and the user is told of a refusal, as of half
/// of a surrogate pair.
bool SaveTextToFile(Application& app, const QString& fileName,
                    const std::function<bool(const TextSink&)>& write);

} // namespace edit
