// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <string>

// What the two programs send each other: fields, each the number of its bytes in decimal, a line feed, and
// the bytes.
namespace schemas {

std::string ReadField(); ///< of standard input; throws std::runtime_error where it ends too soon
long ReadNumber();
void WriteField(const std::string& bytes); ///< to standard output
void WriteNumber(long number);

} // namespace schemas
