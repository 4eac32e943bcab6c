// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/schemas/Wire.h"
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace schemas {

std::string ReadField() {
    char head[24] = {};
    if (!std::fgets(head, sizeof head, stdin))
        throw std::runtime_error("the request ends too soon");
    std::string bytes(std::strtoul(head, nullptr, 10), '\0');
    if (std::fread(bytes.data(), 1, bytes.size(), stdin) != bytes.size())
        throw std::runtime_error("the request ends too soon");
    return bytes;
}

long ReadNumber() {
    return std::strtol(ReadField().c_str(), nullptr, 10);
}

void WriteField(const std::string& bytes) {
    std::fprintf(stdout, "%zu\n", bytes.size());
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
}

void WriteNumber(long number) {
    WriteField(std::to_string(number));
}

} // namespace schemas
