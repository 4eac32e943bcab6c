// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/Declaration.h"
#include "platform/text/LongText.h"
#include <QByteArray>
#include <QString>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

// Bytes of a document file to the text of a window and back, so that a file opened and saved unchanged keeps
// its bytes.
namespace text {

enum class LineEnd : std::uint8_t { CrLf, Lf, Cr };

/// How a file writes its line ends. `common` is used for new lines (that of the system where it has none);
/// `each` (one entry a line end, in order) is filled only when the file mixes them, together with the text
/// they belong to.
struct LineEnds {
    LineEnd common = LineEnd::CrLf;
    std::vector<LineEnd> each;
    LongText loadedText;
};

/// What a window remembers of its file.
struct FileForm {
    QString encoding = QStringLiteral("UTF-8"); ///< the one the bytes are in (a name Encode takes)
    QString declared;  ///< the label in the declaration as it was read, empty without one
    bool mark = false; ///< a byte-order mark stands in front
    /// A UTF-8 file with bytes that are none: the character that stands for the byte 0x80 in the text, with
    /// those for the others behind it. 0 without any.
    char32_t badBytes = 0;
    LineEnds lineEnds;
    /// Set only where writing the text again would not give these bytes: the file as read, and its text.
    std::shared_ptr<const QByteArray> originalBytes;
    LongText originalText;
    /// The text that the file was opened with, and once it has been written the form that it had then: a text
    /// that is that again, step by step taken back, gets its bytes again.
    LongText openedText;
    std::shared_ptr<const FileForm> opened;
};

struct Decoded {
    LongText text; ///< with CR LF line ends, without the byte-order mark
    FileForm form;
    QString
        warning; ///< one sentence for the user where declaration or byte-order mark didn't fit; else empty
};

/// Bytes to text: byte-order mark, else UTF-16 recognised by its first bytes, else the declared encoding,
/// else `charset` (what a server says beside the bytes, empty for nothing), else UTF-8, else the locale's
/// 8-bit encoding, else Latin-1, which takes any byte. UTF-8 with a few bytes that don't fit stays UTF-8 (see
/// BadBytes.h), and `warning` says so. Where the byte-order mark, the declared encoding or
/// the charset doesn't fit the bytes the next in this order is used and `warning` says so. Never fails; no
/// byte is lost. A text read by its charset alone is written as UTF-8: a file has no place to say that
/// charset.
Decoded Decode(const QByteArray& bytes, const QString& charset = {});
/// Reads the bytes in the encoding of a label and in no other, behind its byte-order mark where they begin
/// with one; nothing for an unknown label and where the bytes aren't in that encoding.
std::optional<Decoded> DecodeAs(const QByteArray& bytes, const QString& label);

struct Encoded {
    QByteArray bytes;
    QString encoding;  ///< the one that was used
    bool mark = false; ///< a byte-order mark stands in front
    /// 0-based place of the first character that the encoding can't hold; -1 when all fit.
    qsizetype badPosition = -1;
};

/// Text (CR LF line ends) to bytes. The encoding is the one the file was read with as long as the text's
/// declaration is the one it was read with (also: none), else the one the declaration names now (an unknown
/// label: UTF-8); byte-order mark and line ends are those of the form. UTF-16 always gets a byte-order mark.
/// A surrogate that lacks its partner counts as a character that can't be held, and so does a byte that isn't
/// UTF-8 in any other encoding.
Encoded Encode(const QString& text, const FileForm& form);

/// Whether a label (any case, all of the vocabulary's fourteen and the usual names) can be read and written.
bool KnowsEncoding(const QString& label);

} // namespace text
