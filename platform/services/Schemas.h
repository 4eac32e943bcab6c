// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/LongText.h"
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace services {

/// What a check found. Line and column (in 16-bit units) count from 1 and are those behind the tag or the
/// text concerned; 0 for a fault without a place.
struct SchemaFault {
    QString document; ///< as the request or a location in a schema has it
    int line = 0, column = 0;
    QString message;
    bool warning = false; ///< of a document that couldn't be had: other faults may follow from that
    bool note = false;    ///< worth knowing, and no fault
};

/// A document that was fetched.
struct FetchedSchema {
    QString address; ///< where it was found in the end; what it refers to is looked for beside that
    QByteArray bytes;
    QString complaint; ///< why it couldn't be had; empty where it could
};

struct SchemaRequest {
    text::LongText text;
    QString place;       ///< of the document's file, or its address; empty for one without
    bool schema = false; ///< it is a schema; else a document that names its schemas itself
    std::map<QString, FetchedSchema> fetched; ///< documents from the net, by the address asked for
};

enum class SchemaOutcome { Checked, TooLong, TooLarge, Failed, Cancelled };

struct SchemaAnswer {
    SchemaOutcome outcome = SchemaOutcome::Failed;
    std::vector<SchemaFault> faults; ///< in the order in which they were found; a thousand at most
    QStringList wanted;              ///< addresses that were not among the fetched ones
    QStringList read;                ///< files that were looked at beside the text
};

enum class SampleAmount { Minimal, Typical, All };

/// What a sample of a schema is to be.
struct SampleWish {
    SampleAmount amount = SampleAmount::Typical;
    int seed = 0;            ///< not below 0; another one makes another sample
    QString root;            ///< local name of its root element; empty: as the schema suggests
    QString targetNamespace; ///< of the schema, and so of the root
    QString encoding;        ///< that its declaration names
    QString location;        ///< of the schema, as the sample is to name it
};

struct SampleAnswer {
    SchemaOutcome outcome = SchemaOutcome::Failed;
    QString text;        ///< a sample that the check accepts; empty where there is none
    QStringList remarks; ///< why there is none, or why it isn't quite the one that was wished for
    QStringList wanted;  ///< as of a check
};

/// A check that goes on beside the program's other work. Destroyed, it is given up.
class SchemaCheck {
public:
    virtual ~SchemaCheck() = default;
    /// Whether it has come to its end, for which it waits at most so many milliseconds. With 0 it costs next
    /// to nothing.
    virtual bool WaitForEnd(int milliseconds) = 0;
    virtual SchemaAnswer TakeAnswer() = 0; ///< once, after its end
};

/// Checks schemas, and documents against the schemas that they name. What these include or import is looked
/// for beside them, among regular files alone; nothing is fetched from the net.
class Schemas {
public:
    virtual ~Schemas() = default;
    virtual std::unique_ptr<SchemaCheck> Begin(const SchemaRequest& request) = 0;
    /// The same to its end. `step` is called about ten times a second; false cancels.
    SchemaAnswer Check(const SchemaRequest& request, const std::function<bool()>& step);
    /// Makes a document by a schema.
    virtual SampleAnswer MakeSample(const SchemaRequest& request, const SampleWish& wish,
                                    const std::function<bool()>& step) = 0;
    /// Checks documents by a schema, whatever they name themselves. What the schema refers to is looked for
    /// among the fetched documents first, by its place.
    virtual SchemaAnswer CheckBy(const SchemaRequest& request, const std::vector<text::LongText>& documents,
                                 const std::function<bool()>& step) = 0;
};

/// The bounds of one check.
struct SchemaLimits {
    int seconds = 30;               ///< of processor time
    qint64 bytes = qint64(3) << 30; ///< of address space
};

/// By a program of its own within these bounds; `program` empty: vantrel-schemas beside this one.
std::unique_ptr<Schemas> MakeSchemas(const QString& program = {}, const SchemaLimits& limits = {});

} // namespace services
