// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <QStringView>
#include <vector>

namespace exchange {

/// How a line is taken apart.
enum class Quotes {
    None,   ///< plain split at the delimiter
    OfLine, ///< a double quote anywhere begins or ends a stretch in which delimiters count as characters; two
            ///< beside each other stand for one
    OfField ///< a field that begins with one goes on to the next that isn't doubled, also over line ends
};

/// A line with more fields is no row: the delimiter is another one, or the file no table.
inline constexpr std::size_t kMostFields = 100000;

/// Takes lines apart into fields. The quote is always the double quote.
class FieldSplitter {
public:
    /// An empty delimiter leaves lines whole.
    FieldSplitter(const QString& delimiter, Quotes quotes) : delimiter_(delimiter), quotes_(quotes) {}

    /// Takes the next line of a record. False while the record goes on with the line behind it.
    bool Take(QStringView line);
    /// The fields of the record, good until the next Take and as long as its line. At least one; of more than
    /// kMostFields one more than these. Line ends inside a field are LF.
    const std::vector<QStringView>& Fields();
    bool IsInside() const { return inside_; } ///< a quote has begun that hasn't ended
    void Forget();                            ///< what has been taken of a record that isn't complete

private:
    void SplitPlain(QStringView line);
    void WalkLine(QStringView line);
    void WalkFields(QStringView line);
    qsizetype EndOfPlain(QStringView line, qsizetype from) const;
    bool IsDelimiter(QStringView line, qsizetype at) const;
    void EndField() {
        if (ends_.size() <= kMostFields)
            ends_.push_back(scratch_.size());
    }

    QString delimiter_;
    Quotes quotes_;
    std::vector<QStringView> fields_;
    QString scratch_;             ///< the fields without their quotes, one behind the other
    std::vector<qsizetype> ends_; ///< where each ends in it
    bool inside_ = false, plain_ = true;
};

} // namespace exchange
