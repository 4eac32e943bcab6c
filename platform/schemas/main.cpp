// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/schemas/Check.h"
#include "platform/schemas/SampleBySchema.h"
#include "platform/schemas/Wire.h"
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <stdexcept>
#include <sys/resource.h>

// Checks one schema, or one document against its schemas, or makes a sample by a schema: a request on
// standard input, what was found on standard output. Ends with 3 where the memory that it may use doesn't do.
namespace {

constexpr int kOutOfMemory = 3;
constexpr long kStack = 100L << 20; // types inside types are walked by calls, thousands of levels deep

/// What is wanted, by its number in the request.
enum class Task : long { CheckDocument = 0, CheckSchema = 1, MakeSample = 2, CheckDocuments = 3 };

void Limit(int what, long most) {
    const rlimit limit{static_cast<rlim_t>(most), static_cast<rlim_t>(most)};
    setrlimit(static_cast<__rlimit_resource>(what), &limit);
}

// The sanitizers reserve address space without end.
void TakeLimits(long seconds, long bytes) {
    Limit(RLIMIT_CPU, seconds);
    Limit(RLIMIT_CORE, 0);
    Limit(RLIMIT_STACK, kStack);
#ifndef __SANITIZE_ADDRESS__
    Limit(RLIMIT_AS, bytes);
#else
    (void)bytes;
#endif
}

schemas::Request ReadRequest(Task& task) {
    const long seconds = schemas::ReadNumber();
    TakeLimits(seconds, schemas::ReadNumber());
    schemas::Request request;
    task = static_cast<Task>(schemas::ReadNumber());
    request.schema = task != Task::CheckDocument;
    request.place = schemas::ReadField();
    request.text = schemas::ReadField();
    for (long left = schemas::ReadNumber(); left > 0; --left) {
        const std::string address = schemas::ReadField();
        const std::string foundAt = schemas::ReadField();
        const std::string bytes = schemas::ReadField();
        request.sources.fetched[address] = {foundAt, bytes, schemas::ReadField()};
    }
    return request;
}

void WriteAll(const std::set<std::string>& names) {
    schemas::WriteNumber(static_cast<long>(names.size()));
    for (const std::string& name : names)
        schemas::WriteField(name);
}

samples::Wish ReadWish() {
    const auto wide = [](const std::string& units) {
        std::u16string text(units.size() / sizeof(char16_t), u'\0');
        std::memcpy(text.data(), units.data(), text.size() * sizeof(char16_t));
        return text;
    };
    samples::Wish wish;
    wish.amount = static_cast<samples::Amount>(schemas::ReadNumber());
    wish.seed = static_cast<std::uint64_t>(schemas::ReadNumber());
    for (std::u16string* const part :
         {&wish.rootSpace, &wish.root, &wish.binding.encoding, &wish.binding.location})
        *part = wide(schemas::ReadField());
    wish.binding.locationSpace = wish.rootSpace;
    return wish;
}

std::vector<std::string> ReadDocuments() {
    std::vector<std::string> documents;
    for (long left = schemas::ReadNumber(); left > 0; --left)
        documents.push_back(schemas::ReadField());
    return documents;
}

void WriteAnswer(const std::vector<schemas::Fault>& faults, const schemas::Sources& sources) {
    schemas::WriteNumber(static_cast<long>(faults.size()));
    for (const schemas::Fault& fault : faults) {
        schemas::WriteField(fault.document);
        schemas::WriteNumber(fault.line);
        schemas::WriteNumber(fault.column);
        schemas::WriteNumber(static_cast<long>(fault.kind));
        schemas::WriteField(fault.message);
    }
    WriteAll(sources.wanted);
    WriteAll(sources.read);
}

// The text as UTF-16, and what is to be told of it.
void WriteSample(const schemas::SampleAnswer& sample) {
    schemas::WriteField(
        {reinterpret_cast<const char*>(sample.text.data()), sample.text.size() * sizeof(char16_t)});
    schemas::WriteNumber(static_cast<long>(sample.remarks.size()));
    for (const std::string& remark : sample.remarks)
        schemas::WriteField(remark);
}

void Serve() {
    Task task = Task::CheckDocument;
    schemas::Request request = ReadRequest(task);
    if (task == Task::MakeSample) {
        const schemas::SampleAnswer sample = schemas::MakeSampleBySchema(request, ReadWish());
        WriteAnswer({}, request.sources);
        WriteSample(sample);
    } else if (task == Task::CheckDocuments) {
        WriteAnswer(schemas::CheckDocuments(request, ReadDocuments()), request.sources);
    } else {
        const std::vector<schemas::Fault> faults = schemas::Check(request);
        WriteAnswer(faults, request.sources);
    }
    std::fflush(stdout);
}

} // namespace

// It ends at once: tidying up takes as long as the check itself.
int main() {
    try {
        Serve();
    } catch (const std::bad_alloc&) {
        std::_Exit(kOutOfMemory);
    } catch (const std::runtime_error&) {
        std::_Exit(EXIT_FAILURE);
    }
    std::_Exit(EXIT_SUCCESS);
}
