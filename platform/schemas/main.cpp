// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/schemas/Check.h"
#include "platform/schemas/Wire.h"
#include <cstdio>
#include <cstdlib>
#include <new>
#include <stdexcept>
#include <sys/resource.h>

// Checks one schema, or one document against its schemas: a request on standard input, what was found on
// standard output. Ends with 3 where the memory that it may use doesn't do.
namespace {

constexpr int kOutOfMemory = 3;

void Limit(int what, long most) {
    const rlimit limit{static_cast<rlim_t>(most), static_cast<rlim_t>(most)};
    setrlimit(static_cast<__rlimit_resource>(what), &limit);
}

// The sanitizers reserve address space without end.
void TakeLimits(long seconds, long bytes) {
    Limit(RLIMIT_CPU, seconds);
    Limit(RLIMIT_CORE, 0);
#ifndef __SANITIZE_ADDRESS__
    Limit(RLIMIT_AS, bytes);
#else
    (void)bytes;
#endif
}

schemas::Request ReadRequest() {
    const long seconds = schemas::ReadNumber();
    TakeLimits(seconds, schemas::ReadNumber());
    schemas::Request request;
    request.schema = schemas::ReadNumber() == 1;
    request.place = schemas::ReadField();
    request.text = schemas::ReadField();
    for (long left = schemas::ReadNumber(); left > 0; --left) {
        const std::string address = schemas::ReadField();
        const std::string foundAt = schemas::ReadField();
        request.sources.fetched[address] = {foundAt, schemas::ReadField()};
    }
    return request;
}

void WriteAnswer(const std::vector<schemas::Fault>& faults, const std::set<std::string>& wanted) {
    schemas::WriteNumber(static_cast<long>(faults.size()));
    for (const schemas::Fault& fault : faults) {
        schemas::WriteField(fault.document);
        schemas::WriteNumber(fault.line);
        schemas::WriteNumber(fault.column);
        schemas::WriteNumber(fault.warning ? 1 : 0);
        schemas::WriteField(fault.message);
    }
    schemas::WriteNumber(static_cast<long>(wanted.size()));
    for (const std::string& address : wanted)
        schemas::WriteField(address);
    std::fflush(stdout);
}

} // namespace

// It ends at once: tidying up takes as long as the check itself.
int main() {
    try {
        schemas::Request request = ReadRequest();
        const std::vector<schemas::Fault> faults = schemas::Check(request);
        WriteAnswer(faults, request.sources.wanted);
    } catch (const std::bad_alloc&) {
        std::_Exit(kOutOfMemory);
    } catch (const std::runtime_error&) {
        std::_Exit(EXIT_FAILURE);
    }
    std::_Exit(EXIT_SUCCESS);
}
