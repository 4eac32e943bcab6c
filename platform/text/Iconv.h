// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QByteArray>
#include <QLatin1String>
#include <QStringView>
#include <cerrno>
#include <cstddef>
#include <iconv.h>

namespace text {

#if __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
inline constexpr const char* kUtf16Native = "UTF-16BE";
#else
inline constexpr const char* kUtf16Native = "UTF-16LE";
#endif

/// One of the system's converters, from one encoding to another.
class Iconv {
public:
    Iconv(const char* from, const char* to) : handle_(iconv_open(to, from)) {}
    ~Iconv() {
        if (IsOpen())
            iconv_close(handle_);
    }
    Iconv(const Iconv&) = delete;
    Iconv& operator=(const Iconv&) = delete;

    bool IsOpen() const { return handle_ != Closed(); }
    /// Converts until the input ends (0), the output is full (E2BIG), or the input can't be converted
    /// (EILSEQ, or EINVAL for a cut sequence at the end). All four move on. Without input the state is
    /// written out and reset.
    int Convert(const char*& in, std::size_t& inLeft, char*& out, std::size_t& outLeft) {
        char* from = const_cast<char*>(in); // the system's signature; the input isn't written to
        const std::size_t result = iconv(handle_, in == nullptr ? nullptr : &from, &inLeft, &out, &outLeft);
        in = from;
        return result == static_cast<std::size_t>(-1) ? errno : 0;
    }
    /// Whether ASCII text given in `from` comes out as the same characters in 16-bit units.
    bool ConvertsToItself(const QByteArray& ascii) {
        if (!IsOpen())
            return false;
        QByteArray units(ascii.size() * 4, '\0');
        const char* in = ascii.constData();
        std::size_t inLeft = static_cast<std::size_t>(ascii.size());
        char* out = units.data();
        std::size_t outLeft = static_cast<std::size_t>(units.size());
        if (Convert(in, inLeft, out, outLeft) != 0)
            return false;
        const auto* text = reinterpret_cast<const char16_t*>(units.constData());
        return QStringView(text, (out - units.data()) / 2) == QLatin1String(ascii);
    }

private:
    static iconv_t Closed() { return reinterpret_cast<iconv_t>(-1); }
    iconv_t handle_;
};

} // namespace text
