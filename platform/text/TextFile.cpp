// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/TextFile.h"
#include "platform/text/BadBytes.h"
#include "platform/text/Decoder.h"
#include "platform/text/Encoder.h"
#include "platform/text/Encodings.h"
#include "platform/text/LineEnds.h"
#include <optional>

namespace text {

namespace {

constexpr qsizetype kDeclarationBytes = 1024;

Encoding Known(const char* name) {
    return FindEncoding(QString::fromLatin1(name)).value_or(Encoding{});
}

/// Compares what an encoder makes of the text, piece by piece, with the bytes that the text came from.
class RewriteCheck {
public:
    RewriteCheck(const Encoding& encoding, QByteArrayView bytes)
        : encoder_(MakeEncoder(encoding)), rest_(bytes) {}
    void Append(QStringView piece) { same_ = same_ && encoder_->Append(piece) < 0 && Compare(); }
    bool Finish() {
        encoder_->Finish();
        return same_ && Compare() && rest_.isEmpty();
    }

private:
    bool Compare() {
        const QByteArrayView made = encoder_->Drain();
        if (!rest_.startsWith(made))
            return false;
        rest_ = rest_.sliced(made.size());
        return true;
    }
    std::unique_ptr<Encoder> encoder_;
    QByteArrayView rest_;
    bool same_ = true;
};

void KeepOriginal(Decoded& result, const QByteArray& bytes) {
    result.form.originalBytes = std::make_shared<const QByteArray>(bytes);
    result.form.originalText = result.text;
}

/// Reads the bytes strictly in this encoding; nothing when they don't fit.
std::optional<Decoded> ReadAs(const Encoding& encoding, const QByteArray& bytes, qsizetype markSize) {
    const QByteArrayView body = QByteArrayView(bytes).sliced(markSize);
    LineEndReader reader;
    const bool doubtful = encoding.kind == Encoding::Kind::Utf7 || encoding.kind == Encoding::Kind::Other;
    std::optional<RewriteCheck> check;
    if (doubtful)
        check.emplace(encoding, body);
    const Fit fit = DecodeBytes(encoding, body, [&](QStringView piece) {
        reader.append(piece);
        if (check)
            check->Append(piece);
    });
    if (fit == Fit::No)
        return std::nullopt;
    Decoded result;
    result.text = reader.finish();
    result.form.lineEnds = reader.ends(result.text);
    result.form.encoding = QString::fromLatin1(encoding.name);
    result.form.declared = DeclaredEncoding(result.text);
    result.form.mark = markSize > 0;
    if (fit == Fit::Surrogates || (check && !check->Finish()))
        KeepOriginal(result, bytes);
    return result;
}

/// Reads UTF-8 in which some bytes are none. Where nothing names it, it has to have more good sequences of
/// several bytes than places that aren't: a file in an 8-bit encoding has hardly any. `named`: by a mark or
/// the declaration.
std::optional<Decoded> ReadMended(const QByteArray& bytes, qsizetype markSize, bool named) {
    const QByteArrayView body = QByteArrayView(bytes).sliced(markSize);
    const BadBytes bad = CountBadBytes(body);
    const char32_t range =
        bad.errors > std::max<qsizetype>(bad.sequences, named ? 1 : 0) ? 0 : FreeRange(body);
    if (bad.errors == 0 || range == 0)
        return std::nullopt;
    std::optional<Decoded> result =
        ReadAs(Known("UTF-8"), bytes.first(markSize) + Mended(body, range), markSize);
    if (!result)
        return std::nullopt;
    result->form.badBytes = range;
    result->warning =
        QStringLiteral("The file is UTF-8, but for %1 of its bytes, the first of which is byte %2. "
                       "They are kept as they are; each is shown as a character of its own.")
            .arg(bad.bytes)
            .arg(markSize + bad.first + 1);
    return result;
}

/// The encoding whose byte-order mark the bytes start with.
std::optional<Encoding> ByByteOrderMark(const QByteArray& bytes) {
    // The mark of UTF-32LE starts like the one of UTF-16LE.
    for (const char* name : {"UTF-32LE", "UTF-32BE", "UTF-8", "UTF-16LE", "UTF-16BE"}) {
        Encoding encoding = Known(name);
        const bool whole = encoding.kind != Encoding::Kind::Other || bytes.size() % 4 == 0;
        if (whole && bytes.startsWith(ByteOrderMarkIn(encoding)))
            return encoding;
    }
    return std::nullopt;
}

/// A encoding of two or four bytes a character, recognised by the "<" in front.
std::optional<Encoding> ByFirstBytes(const QByteArray& bytes) {
    if (bytes.startsWith(QByteArray("<\0\0\0", 4)))
        return Known("UTF-32LE");
    if (bytes.startsWith(QByteArray("\0\0\0<", 4)))
        return Known("UTF-32BE");
    if (bytes.startsWith(QByteArray("<\0", 2)))
        return Known("UTF-16LE");
    if (bytes.startsWith(QByteArray("\0<", 2)))
        return Known("UTF-16BE");
    return std::nullopt;
}

/// The label of a declaration in bytes that hold ASCII characters as single bytes.
QString LabelIn(QByteArrayView bytes) {
    return DeclaredEncoding(QString::fromLatin1(bytes.first(std::min(bytes.size(), kDeclarationBytes))));
}

/// Reads by what was said beside the bytes; nothing when that doesn't fit. A encoding of more than one byte a
/// character would have been recognised by its first bytes; here it would take any bytes and give nonsense.
std::optional<Decoded> ReadByCharset(const QString& charset, const QByteArray& bytes, qsizetype markSize) {
    const std::optional<Encoding> encoding = FindEncoding(charset);
    return encoding && encoding->byteCompatible ? ReadAs(*encoding, bytes, markSize) : std::nullopt;
}

/// The form of a text whose encoding nothing in it names: only UTF-8 needs no naming.
void WriteAsUtf8(Decoded& read) {
    read.form.encoding = QStringLiteral("UTF-8");
    read.form.originalBytes.reset();
    read.form.originalText = {};
}

/// The last resorts, of which Latin-1 takes anything.
Decoded ReadUndeclared(const QByteArray& bytes, qsizetype markSize) {
    if (std::optional<Decoded> result = ReadAs(Known("UTF-8"), bytes, markSize))
        return *std::move(result);
    if (const std::optional<Encoding> locale = LocaleEncoding()) {
        if (std::optional<Decoded> result = ReadAs(*locale, bytes, markSize))
            return *std::move(result);
    }
    return ReadAs(Known("ISO-8859-1"), bytes, markSize).value_or(Decoded{});
}

QString DeclarationWarning(const QString& label, bool known, const QString& used) {
    return (known ? QStringLiteral("The bytes of the file aren't in the declared encoding \"%1\"; "
                                   "it was read as %2.")
                  : QStringLiteral("The declared encoding \"%1\" isn't known; the file was read "
                                   "as %2."))
        .arg(label, used);
}

/// Nothing for UTF-8, which needs no naming unless the server named something else.
QString NoDeclarationWarning(const QString& charset, const QString& used) {
    if (!charset.isEmpty())
        return QStringLiteral("The bytes aren't in the encoding \"%1\" that the server named; they "
                              "were read as %2.")
            .arg(charset, used);
    if (used == QStringLiteral("UTF-8"))
        return {};
    return QStringLiteral("The file names no encoding and isn't UTF-8; it was read as %1.").arg(used);
}

bool NamesUtf8(const std::optional<Encoding>& encoding) {
    return encoding && encoding->kind == Encoding::Kind::Utf8;
}

/// Reads by the declaration, or without one.
Decoded ReadByDeclaration(const QByteArray& bytes, qsizetype markSize, const QString& charset) {
    const QString label = LabelIn(QByteArrayView(bytes).sliced(markSize));
    const std::optional<Encoding> declared = label.isEmpty() ? std::nullopt : FindEncoding(label);
    if (declared) {
        std::optional<Decoded> result = ReadAs(*declared, bytes, markSize);
        // A encoding in which the declaration itself reads differently can't be meant.
        if (result && result->form.declared == label)
            return *std::move(result);
    }
    std::optional<Decoded> named = ReadByCharset(charset, bytes, markSize);
    const bool byCharset = named.has_value();
    if (!byCharset && (label.isEmpty() || NamesUtf8(declared))) {
        if (std::optional<Decoded> result = ReadMended(bytes, markSize, markSize > 0 || NamesUtf8(declared)))
            return *std::move(result);
    }
    Decoded result = byCharset ? *std::move(named) : ReadUndeclared(bytes, markSize);
    if (!label.isEmpty())
        result.warning = DeclarationWarning(label, declared.has_value(), result.form.encoding);
    else if (!byCharset)
        result.warning = NoDeclarationWarning(charset, result.form.encoding);
    if (byCharset)
        WriteAsUtf8(result);
    return result;
}

/// What to tell about a declaration that names another encoding than the one that the first bytes gave away.
QString Contradiction(const Decoded& read, const Encoding& encoding) {
    const QString& label = read.form.declared;
    const std::optional<Encoding> declared = FindEncoding(label);
    if (label.isEmpty() || (declared && SameButForByteOrder(*declared, encoding)))
        return {};
    return QStringLiteral("The declared encoding is \"%1\", but the first bytes of the file say %2, as which "
                          "it was read.")
        .arg(label, read.form.encoding);
}

/// Whether a text in this encoding gets a mark in front.
bool NeedsByteOrderMark(const Encoding& encoding, const FileForm& form) {
    if (QString::fromLatin1(encoding.name) != form.encoding)
        return !encoding.byteCompatible;
    const bool canHaveOne = encoding.kind == Encoding::Kind::Utf8 || !encoding.byteCompatible;
    return encoding.needsByteOrderMark || (form.mark && canHaveOne);
}

/// The encoding to write a text in.
Encoding EncodingFor(const QString& text, const FileForm& form) {
    const QString label = DeclaredEncoding(text);
    return FindEncoding(label == form.declared ? form.encoding : label)
        .value_or(Encoding{Encoding::Kind::Utf8, "UTF-8"});
}

} // namespace

Decoded Decode(const QByteArray& bytes, const QString& charset) {
    const std::optional<Encoding> marked = ByByteOrderMark(bytes);
    if (const std::optional<Encoding> encoding = marked ? marked : ByFirstBytes(bytes)) {
        const qsizetype markSize = marked ? ByteOrderMarkIn(*encoding).size() : 0;
        if (std::optional<Decoded> result = ReadAs(*encoding, bytes, markSize)) {
            result->warning = Contradiction(*result, *encoding);
            return *std::move(result);
        }
    }
    const bool spoiled = marked && marked->kind == Encoding::Kind::Utf8;
    Decoded result = ReadByDeclaration(bytes, spoiled ? ByteOrderMarkIn(*marked).size() : 0, charset);
    if (result.form.badBytes != 0)
        return result;
    if (spoiled) {
        // A mark that says the wrong thing would only spoil the text. It goes once the text is changed.
        result.form.mark = false;
        KeepOriginal(result, bytes);
    }
    if (marked) {
        result.warning =
            QStringLiteral(
                "The file starts with the byte-order mark of %1, but its bytes aren't in that encoding; "
                "it was read as %2.")
                .arg(QString::fromLatin1(marked->name), result.form.encoding);
    }
    return result;
}

std::optional<Decoded> DecodeAs(const QByteArray& bytes, const QString& label) {
    const std::optional<Encoding> wanted = FindEncoding(label);
    if (!wanted)
        return std::nullopt;
    // A mark tells the byte order, which a label may leave open.
    const std::optional<Encoding> marked = ByByteOrderMark(bytes);
    if (marked && SameButForByteOrder(*marked, *wanted))
        return ReadAs(*marked, bytes, ByteOrderMarkIn(*marked).size());
    return ReadAs(*wanted, bytes, 0);
}

Encoded Encode(const QString& text, const FileForm& form) {
    Encoded result;
    if (form.originalBytes && form.originalText == text) {
        result.bytes = *form.originalBytes;
        result.encoding = form.encoding;
        result.mark = form.mark;
        return result;
    }
    const Encoding encoding = EncodingFor(text, form);
    result.encoding = QString::fromLatin1(encoding.name);
    result.mark = NeedsByteOrderMark(encoding, form);
    const bool utf8 = encoding.kind == Encoding::Kind::Utf8;
    if (form.badBytes != 0 && !utf8) {
        result.badPosition = FirstOfRange(text, form.badBytes);
        if (result.badPosition >= 0)
            return result;
    }
    const std::unique_ptr<Encoder> encoder = MakeEncoder(encoding);
    encoder->Reserve(text.size() + text.size() / 16);
    if (result.mark)
        encoder->AppendBytes(ByteOrderMarkIn(encoding));
    WriteLineEnds(text, form.lineEnds, [&](QStringView piece, qsizetype position) {
        const qsizetype bad = encoder->Append(piece);
        if (bad >= 0)
            result.badPosition = position + bad;
        return bad < 0;
    });
    encoder->Finish();
    if (result.badPosition < 0)
        result.bytes = encoder->Take();
    if (form.badBytes != 0 && utf8)
        result.bytes = Unmended(result.bytes, form.badBytes);
    return result;
}

bool KnowsEncoding(const QString& label) {
    return FindEncoding(label).has_value();
}

} // namespace text
