// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include <QString>
#include <QStringList>
#include <optional>

// A sample for a pattern of the schema language. Nothing is understood of the expression: a fixed series of
// replacements makes a text of it, which doesn't always match.
namespace schema {

/// The sample; empty where a count doesn't fit 16 bits, or the sample would be longer than a million
/// characters. That is reported.
QString GenerateSampleByPattern(Application& app, const QString& pattern);

/// The same; nothing for what is too long.
std::optional<QString> PatternSampleIfAny(Application& app, const QString& pattern);

/// `text`, `count` times; empty for a count below 1.
QString RepeatString(int count, const QString& text);

/// What stands between each "(" and the next ")", from left to right: inner groups aren't told apart.
QStringList GetCapturedMatch(const QString& text);

} // namespace schema
