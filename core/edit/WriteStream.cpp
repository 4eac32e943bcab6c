// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/edit/WriteStream.h"
#include "core/edit/WriteFile.h"
#include "core/model/Application.h"
#include "platform/text/Encoder.h"
#include <algorithm>
#include <optional>

namespace edit {

namespace {

/// Parts of a text to bytes.
class Utf8Stream {
public:
    struct Place {
        qsizetype line = 1, position = 1; ///< from 1
    };
    explicit Utf8Stream(const services::PutBytes& put) : put_(put) {}

    bool Take(QStringView part) {
        const qsizetype bad = encoder_->Append(part);
        Count(bad < 0 ? part : part.first(bad));
        if (bad >= 0)
            half_ = behind_;
        return bad < 0 && put_(encoder_->Drain());
    }
    /// Where half of a surrogate pair stands; nothing without one.
    const std::optional<Place>& LoneHalf() const { return half_; }

private:
    void Count(QStringView part) {
        const qsizetype end = part.lastIndexOf(u'\n');
        behind_.line += std::count(part.begin(), part.end(), u'\n');
        behind_.position = end < 0 ? behind_.position + part.size() : part.size() - end;
    }

    const services::PutBytes& put_;
    std::unique_ptr<text::Encoder> encoder_ = text::MakeEncoder({});
    Place behind_; ///< what was taken
    std::optional<Place> half_;
};

} // namespace

bool SaveTextToFile(Application& app, const QString& fileName,
                    const std::function<bool(const TextSink&)>& write) {
    std::optional<Utf8Stream::Place> half;
    const services::FileResult result =
        app.services.files.ReplaceBy(fileName, [&](const services::PutBytes& put) {
            Utf8Stream stream(put);
            const bool whole = write([&](QStringView part) { return stream.Take(part); });
            half = stream.LoneHalf();
            return whole && !half;
        });
    if (half)
        TellLoneHalf(app, half->line, half->position);
    else if (!result && result.error != services::FileError::Cancelled)
        TellRefused(app, result);
    return static_cast<bool>(result);
}

} // namespace edit
