// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/LongTextBuilder.h"
#include <QString>
#include <QStringView>
#include <array>
#include <vector>

namespace exchange {

/// Whether a row's fields become attributes of its element or elements in it.
enum class Filling { Attributes, Elements };

/// Characters that a document can't hold, met in the values.
struct LeftOut {
    qsizetype count = 0;
    char32_t first = 0;
    qsizetype row = 0; ///< of the first, from 1
};

/// Writes rows of fields as the text of a document: the root "data", an element "row" for each, one field
/// after the other under its name. Lines end with CR LF. Names are written as they stand, values escaped;
/// line ends and tabs of an attribute's value as references, since they would come back as blanks. Characters
/// that XML has no form for, halves of surrogate pairs among them, are left out and counted.
class RowsXml {
public:
    RowsXml(const std::vector<QString>& names, Filling filling);

    void Begin(const QString& declaration = {}); ///< `declaration` with its line end, empty for none
    void BeginRow();
    /// The next field, in the order of the names.
    void Field(QStringView value);
    void EndRow();
    text::LongText Finish(); ///< call once, at the end
    const LeftOut& Skipped() const { return skipped_; }

private:
    static constexpr std::size_t kAscii = 128;
    void Put(QStringView text);
    void PutValue(QStringView value);
    const QChar* PutRun(const QChar* from, const QChar* end);
    void Skip(char32_t character);
    void Flush();

    Filling filling_;
    std::vector<QString> before_, behind_; ///< what stands around each field
    std::array<QString, kAscii> written_;  ///< how each of these characters is written in a value
    std::array<bool, kAscii> plain_{};     ///< whether as itself
    text::LongText::Builder text_;
    QString buffer_;
    std::size_t next_ = 0;
    qsizetype row_ = 0;
    LeftOut skipped_;
};

} // namespace exchange
