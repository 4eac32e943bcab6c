// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/FindText.h"

namespace {

bool IsPartOfWord(QChar c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c.isDigit();
}

qsizetype TakeHit(controls::RichTextBox& target, qsizetype hit, qsizetype length,
                  const FindOptions& options) {
    if (hit >= 0) {
        target.SetSelStart(hit);
        target.SetSelLength(options.noHighlight ? 0 : length);
    }
    return hit;
}

} // namespace

bool IsWholeWord(const text::LongText& text, qsizetype position, qsizetype length) {
    // Outside the text there is a null character, which is part of no word.
    return !IsPartOfWord(text.at(position - 1)) && !IsPartOfWord(text.at(position + length));
}

qsizetype SearchDown(controls::RichTextBox& target, const QString& text, qsizetype start,
                     const FindOptions& options) {
    if (text.isEmpty())
        return -1;
    const int flags = controls::rtfNoHighlight | (options.wholeWord ? controls::rtfWholeWord : 0) |
                      (options.matchCase ? controls::rtfMatchCase : 0);
    return target.Find(text, start, -1, flags);
}

qsizetype SearchUp(const controls::RichTextBox& target, const QString& text, qsizetype start,
                   const FindOptions& options) {
    if (text.isEmpty())
        return -1;
    const text::LongText& content = target.Long();
    const Qt::CaseSensitivity sensitivity = options.matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive;
    qsizetype from = start - text.size();
    while (from >= 0) {
        const qsizetype hit = content.lastIndexOf(text, from, sensitivity);
        if (hit < 0 || !options.wholeWord || IsWholeWord(content, hit, text.size()))
            return hit;
        from = hit - 1;
    }
    return -1;
}

qsizetype FindText(controls::RichTextBox& target, const QString& text, qsizetype start,
                   const FindOptions& options) {
    return TakeHit(target, SearchDown(target, text, start, options), text.size(), options);
}

qsizetype FindTextRev(controls::RichTextBox& target, const QString& text, qsizetype start,
                      const FindOptions& options) {
    return TakeHit(target, SearchUp(target, text, start, options), text.size(), options);
}
