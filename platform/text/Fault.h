// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <utility>

namespace text {

/// A misuse or failure that a routine's error exit reports: thrown by the control models and services with
/// the number and the text that the commands expect (for example 35601, "Element not found"). Only a
/// routine's own error exit catches it; no other exception passes through that exit.
struct Fault {
    int Number = 0;
    QString Description;
    Fault(int number, QString description) : Number(number), Description(std::move(description)) {}
};

// Numbers used by the control models.
inline constexpr int kFaultBadCall = 5;          ///< Invalid procedure call or argument
inline constexpr int kFaultDeclined = 32755;     ///< the user said Cancel, which needs no report
inline constexpr int kFaultOutOfBounds = 35600;  ///< Index out of bounds
inline constexpr int kFaultNotFound = 35601;     ///< Element not found
inline constexpr int kFaultKeyNotUnique = 35602; ///< Key is not unique in collection
inline constexpr int kFaultInvalidKey = 35603;   ///< Invalid key
inline constexpr int kFaultNothing = 91;         ///< Object variable not set: a "nothing" was used

} // namespace text
