// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <QStringView>
#include <array>
#include <vector>

class QTextDocument;

/// The way between a control model's text and a text document, without loss, and between positions in both.
/// The model has CR LF line ends that count two; the document separates blocks by one character. Three
/// characters that a text may hold mean a block's end to the document, and a line of millions of characters
/// would stop it: the former stand in the document as others that the text doesn't have, the latter is cut
/// into several blocks, each but the last with a mark at its end.
class EditorText {
public:
    /// What the document is filled with. Starts anew: the marks are forgotten.
    QString Load(const QString& text);
    /// What is inserted for a text piece (any line ends) once the document is filled.
    QString Insert(const QString& text);
    /// The model's text for raw text of the document; `lineEnd` stands for a block's end.
    QString Read(const QString& raw, QStringView lineEnd) const;

    /// To be called on each QTextDocument::contentsChange.
    void Changed(const QTextDocument& document, int position, int removed, int added);

    qsizetype ToModel(const QTextDocument& document, int position) const;
    /// Line (from 0) and distance from its start at a position; lines that were cut count as one.
    struct LinePlace {
        qsizetype line, offset;
    };
    LinePlace LineOf(const QTextDocument& document, int position) const;
    /// A position between CR and LF is that of the line's end; one beyond the text is the end.
    int ToDocument(const QTextDocument& document, qsizetype position) const;

    static constexpr qsizetype kLongestLine = 5000; ///< in 16-bit units; a longer one is cut

private:
    void ChooseStandIns(QStringView text);
    QString CutAndReplace(QStringView text);
    char16_t Mark() const { return standIns_[3]; }
    char16_t StandIn(char16_t unit) const;
    char16_t Original(char16_t unit) const;

    std::array<char16_t, 4> standIns_{}; ///< for the three special characters, and the mark
    std::vector<int> marks_;             ///< positions of the marks in the document, in order
    bool cut_ = false;                   ///< there may be marks
};
