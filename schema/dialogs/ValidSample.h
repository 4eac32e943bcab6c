// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "platform/services/Schemas.h"
#include <QStringList>

// Samples of the schema in a window that the check accepts.
namespace schema {

/// Names of the global elements that a sample can begin with, the likely ones first; a thousand at most.
/// Those of other documents that the schema includes aren't among them.
QStringList RootNames(DocumentWindow& window);

/// Makes a sample and opens it as a new document that names the schema; `wish` tells its amount, seed and
/// root. What it refers to on the net is fetched where the user says so. Where there is no sample the user is
/// told why, and no document comes.
void OpenValidSample(DocumentWindow& window, services::SampleWish wish);

} // namespace schema
