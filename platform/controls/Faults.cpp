// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/Faults.h"

namespace controls {

namespace {

QString Description(int number) {
    switch (number) {
    case text::kFaultOutOfBounds:
        return QStringLiteral("Index out of bounds");
    case text::kFaultNotFound:
        return QStringLiteral("Element not found");
    case text::kFaultKeyNotUnique:
        return QStringLiteral("Key is not unique in collection");
    case text::kFaultInvalidKey:
        return QStringLiteral("Invalid key");
    case text::kFaultNothing:
        return QStringLiteral("Object variable not set");
    default:
        return QStringLiteral("Invalid procedure call or argument");
    }
}

} // namespace

void Throw(int number) {
    throw text::Fault(number, Description(number));
}

} // namespace controls
