// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QByteArray>
#include <QString>
#include <utility>
#include <vector>

namespace services {

/// The content of an INI file: "[section]" lines, "key=value" lines, and others, which are kept as they are.
/// UTF-8. In names and values a backslash leads "\n", "\r", "\\" or "\uXXXX" (a 16-bit unit), so that any
/// text can be written; blanks at the ends of a value are written so too, because a reader may have put
/// blanks around the "=". Where a key stands twice the first counts.
class IniText {
public:
    IniText() = default;
    explicit IniText(const QByteArray& bytes);
    QByteArray ToBytes() const;

    /// The value, or null when the key isn't there.
    const QString* Find(const QString& section, const QString& key) const;
    /// Changes the key's line, or adds one at the end of its section.
    void Set(const QString& section, const QString& key, const QString& value);
    /// Pairs in the order of the lines.
    std::vector<std::pair<QString, QString>> All(const QString& section) const;

private:
    struct Line {
        QByteArray raw;  ///< without its LF
        QString section; ///< in which it stands, or which it starts
        QString key;     ///< empty in a line that is no pair
        QString value;
        bool isPair = false;
    };
    static Line Parse(const QByteArray& raw, const QString& section);
    std::vector<Line> lines_;
    bool mark_ = false;  ///< a byte order mark stands in front
    QByteArray lineEnd_; ///< what new lines have before their LF
};

} // namespace services
