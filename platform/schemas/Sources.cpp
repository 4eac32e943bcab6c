// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/schemas/Sources.h"
#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace schemas {

namespace {

constexpr off_t kLargest = 256L << 20; // bytes of one document

// Schemes have no case. `beginning` is in small letters.
bool StartsWith(const std::string& text, const char* beginning) {
    const std::size_t length = std::strlen(beginning);
    return text.size() >= length &&
           std::equal(beginning, beginning + length, text.begin(), [](char small, char letter) {
               return small == std::tolower(static_cast<unsigned char>(letter));
           });
}

bool IsHexDigit(char letter) {
    return std::isxdigit(static_cast<unsigned char>(letter)) != 0;
}

std::string WithoutEscapes(const std::string& location) {
    std::string plain;
    for (std::size_t i = 0; i < location.size(); ++i) {
        const bool escape = location[i] == '%' && i + 2 < location.size() && IsHexDigit(location[i + 1]) &&
                            IsHexDigit(location[i + 2]);
        plain += escape ? static_cast<char>(std::stoi(location.substr(i + 1, 2), nullptr, 16)) : location[i];
        i += escape ? 2 : 0;
    }
    return plain;
}

bool IsThere(const std::string& path) {
    return access(path.c_str(), F_OK) == 0;
}

std::string Beside(const std::string& base, const std::string& location) {
    const std::filesystem::path folder = std::filesystem::path(base).parent_path();
    return (folder / location).lexically_normal().string();
}

// The path behind "scheme://host" is joined like any other.
std::string BesideAddress(const std::string& base, const std::string& location) {
    if (StartsWith(location, "//"))
        return base.substr(0, base.find(':') + 1) + location;
    const std::size_t host = base.find("://") + 3;
    const std::size_t path = std::min(base.find('/', host), base.size());
    const std::string whole = path < base.size() ? base.substr(path) : "/";
    return base.substr(0, path) + Beside(whole.substr(0, whole.find_first_of("?#")), location);
}

struct File {
    int descriptor;
    ~File() {
        if (descriptor >= 0)
            close(descriptor);
    }
};

} // namespace

bool Sources::IsAddress(const std::string& place) {
    return StartsWith(place, "http://") || StartsWith(place, "https://") || StartsWith(place, "ftp://");
}

std::string Sources::Resolve(const std::string& base, const std::string& location) {
    if (IsAddress(location))
        return location;
    if (StartsWith(location, "file://"))
        return WithoutEscapes(location.substr(std::min(location.find('/', 7), location.size())));
    if (StartsWith(location, "file:"))
        return Resolve(base, location.substr(5));
    if (IsAddress(base))
        return BesideAddress(base, location);
    if (StartsWith(location, "/"))
        return IsThere(location) ? location : WithoutEscapes(location);
    if (base.empty())
        return {};
    const std::string path = Beside(base, location);
    return IsThere(path) ? path : Beside(base, WithoutEscapes(location));
}

// Devices and pipes could keep a reader waiting for good.
std::optional<std::string> Sources::Read(std::string& place, std::string& complaint) {
    if (const auto found = fetched.find(place); found != fetched.end()) {
        complaint = found->second.complaint;
        if (!complaint.empty())
            return {};
        place = found->second.address;
        return found->second.bytes;
    }
    if (IsAddress(place)) {
        const bool web = !StartsWith(place, "ftp:");
        if (web)
            wanted.insert(place);
        complaint = web ? "It is not fetched from the net without being allowed to."
                        : "Only addresses of the web are fetched.";
        return {};
    }
    const File file{open(place.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)};
    struct stat about {};
    if (file.descriptor < 0 || fstat(file.descriptor, &about) != 0) {
        complaint = std::strerror(errno);
        return {};
    }
    if (!S_ISREG(about.st_mode) || about.st_size > kLargest) {
        complaint = S_ISREG(about.st_mode) ? "The file is too large." : "It is no file.";
        return {};
    }
    std::string bytes(static_cast<std::size_t>(about.st_size), '\0');
    std::size_t got = 0;
    while (got < bytes.size()) {
        const ssize_t count = ::read(file.descriptor, bytes.data() + got, bytes.size() - got);
        if (count <= 0)
            break;
        got += static_cast<std::size_t>(count);
    }
    bytes.resize(got);
    this->read.insert(place);
    return bytes;
}

} // namespace schemas
