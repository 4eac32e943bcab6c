// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/drag/TextMime.h"
#include "platform/text/TextTools.h"

namespace desktop {

namespace {

constexpr qsizetype kSmall = 1'000'000; // units

class TextMime : public QMimeData {
public:
    TextMime(text::LongText text, TextRange range) : text_(std::move(text)), range_(range) {}
    QStringList formats() const override { return {QStringLiteral("text/plain")}; }
    bool hasFormat(const QString& format) const override { return formats().contains(format); }

protected:
    QVariant retrieveData(const QString& format, QMetaType) const override {
        if (!hasFormat(format))
            return {};
        return WithLineEnds(text_.mid(range_.start, range_.end - range_.start), u"\n");
    }

private:
    text::LongText text_;
    TextRange range_;
};

} // namespace

QString WithLineEnds(QString text, QStringView lineEnd) {
    if (lineEnd != QLatin1String("\r\n"))
        return text::WithReplacements(text, text::PlacesOf(QStringLiteral("\r\n"), text), 2,
                                      lineEnd.toString());
    return text;
}

// A small piece is taken at once: it mustn't keep a large text alive when its window is long closed.
std::unique_ptr<QMimeData> MakeTextMime(const text::LongText& text, TextRange range) {
    const qsizetype size = range.end - range.start;
    if (size < kSmall)
        return std::make_unique<TextMime>(text::LongText(text.mid(range.start, size)), TextRange{0, size});
    return std::make_unique<TextMime>(text, range);
}

bool IsTextMime(const QMimeData& mime) {
    return mime.hasText() && !mime.hasUrls();
}

} // namespace desktop
