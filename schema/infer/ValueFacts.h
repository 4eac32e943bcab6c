// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/CompactText.h"
#include <QString>
#include <QStringList>
#include <cstdint>
#include <string>
#include <vector>

namespace schema {

/// What is known of the values of one attribute, or of the text of one element: as little as tells which
/// types hold for all of them.
class ValueFacts {
public:
    /// A value as it is written, with references.
    void Add(text::CompactView written);
    void AddEmpty();
    std::uint64_t Count() const { return count_; }

    /// The narrowest type of the schema language that holds for all values: its local name.
    QString BuiltIn() const;
    /// Whether each is a language's name, or empty.
    bool AreLanguages() const { return (kinds_ & kLanguage) != 0; }
    /// The values, in the order in which they came, where there are few and they come again and again; else
    /// none.
    QStringList Enumeration() const;

private:
    void Judge(const std::string& plain);
    void TakeNumber(const std::string& plain);
    void Remember(const std::string& plain);

    // Each says of all values so far that they are such; they only get fewer.
    enum Kind : std::uint32_t {
        kBoolean = 1,
        kInteger = 2,
        kDecimal = 4,
        kDouble = 8,
        kDate = 16,
        kDateTime = 32,
        kTime = 64,
        kYearMonth = 128,
        kDuration = 256,
        kAddress = 512,
        kName = 1024,
        kToken = 2048,
        kLanguage = 4096, ///< or empty
    };
    std::uint32_t kinds_ = 0x1FFF;
    bool words_ = false; ///< "true" or "false" among them, and not the digits alone
    bool huge_ = false;  ///< beyond 64 bits
    bool small_ = true;  ///< there are few different ones so far, all of them without odd blanks
    std::int64_t least_ = INT64_MAX, most_ = INT64_MIN;
    std::uint64_t count_ = 0;
    std::vector<std::string> different_; ///< UTF-8
};

} // namespace schema
