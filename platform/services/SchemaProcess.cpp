// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/Schemas.h"
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <csignal>

namespace services {

namespace {

constexpr int kStep = 100;      // milliseconds
constexpr int kOutOfMemory = 3; // the exit code

/// What is asked of the program, by its number in the request.
enum class Task { CheckDocument = 0, CheckSchema = 1, MakeSample = 2, CheckDocuments = 3 };

// Fields, each the number of its bytes, a line feed, and the bytes.
class Fields {
public:
    void add(const QByteArray& bytes) { all_ += QByteArray::number(bytes.size()) + '\n' + bytes; }
    void add(qint64 number) { add(QByteArray::number(number)); }
    void add(const QString& text) { add(text.toUtf8()); }
    const QByteArray& all() const { return all_; }

private:
    QByteArray all_;
};

class Answer {
public:
    explicit Answer(QByteArray bytes) : bytes_(std::move(bytes)) {}
    QByteArray next() {
        const qsizetype line = bytes_.indexOf('\n', at_);
        const qsizetype size = line < 0 ? -1 : bytes_.mid(at_, line - at_).toLongLong();
        good = good && size >= 0 && line + 1 + size <= bytes_.size();
        if (!good)
            return {};
        at_ = line + 1 + size;
        return bytes_.mid(line + 1, size);
    }
    QString text() { return QString::fromUtf8(next()); }
    QString units() {
        const QByteArray all = next();
        return QString(reinterpret_cast<const QChar*>(all.data()), all.size() / 2);
    }
    QStringList texts() {
        QStringList all;
        for (int left = number(); left > 0 && good; --left)
            all << text();
        return all;
    }
    int number() { return next().toInt(); }
    bool good = true;

private:
    QByteArray bytes_;
    qsizetype at_ = 0;
};

// As 16-bit units in the machine's order, which is little endian wherever this is built.
QByteArray Units(const text::LongText& text) {
    static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN);
    QByteArray bytes;
    bytes.reserve(text.size() * 2);
    text.visit(0, text.size(), [&](QStringView piece) {
        bytes.append(reinterpret_cast<const char*>(piece.utf16()), piece.size() * 2);
        return true;
    });
    return bytes;
}

QByteArray Units(const QString& text) {
    return {reinterpret_cast<const char*>(text.utf16()), text.size() * 2};
}

Fields RequestFields(Task task, const SchemaRequest& request, const SchemaLimits& limits) {
    Fields fields;
    fields.add(qint64(limits.seconds));
    fields.add(limits.bytes);
    fields.add(qint64(task));
    fields.add(request.place);
    fields.add(Units(request.text));
    fields.add(qint64(request.fetched.size()));
    for (const auto& [address, bytes] : request.fetched) {
        fields.add(address);
        fields.add(bytes);
    }
    return fields;
}

SchemaAnswer ReadFaults(Answer& answer) {
    SchemaAnswer result;
    for (int left = answer.number(); left > 0 && answer.good; --left) {
        SchemaFault fault;
        fault.document = answer.text();
        fault.line = answer.number();
        fault.column = answer.number();
        fault.warning = answer.number() == 1;
        fault.message = answer.text();
        result.faults.push_back(fault);
    }
    result.wanted = answer.texts();
    result.outcome = answer.good ? SchemaOutcome::Checked : SchemaOutcome::Failed;
    return result;
}

class ProcessSchemas : public Schemas {
public:
    ProcessSchemas(QString program, const SchemaLimits& limits)
        : program_(std::move(program)), limits_(limits) {}

    SchemaAnswer Check(const SchemaRequest& request, const std::function<bool()>& step) override {
        const Task task = request.schema ? Task::CheckSchema : Task::CheckDocument;
        QByteArray bytes;
        const SchemaOutcome outcome = run(RequestFields(task, request, limits_), step, bytes);
        Answer answer(bytes);
        return outcome == SchemaOutcome::Checked ? ReadFaults(answer) : SchemaAnswer{outcome, {}, {}};
    }

    SampleAnswer MakeSample(const SchemaRequest& request, const SampleWish& wish,
                            const std::function<bool()>& step) override {
        Fields fields = RequestFields(Task::MakeSample, request, limits_);
        fields.add(qint64(wish.amount));
        fields.add(qint64(wish.seed));
        const bool spaced = !wish.targetNamespace.isEmpty();
        for (const QString& part : {wish.targetNamespace, wish.root, wish.encoding, wish.location,
                                    spaced ? wish.targetNamespace : QString()})
            fields.add(Units(part));
        QByteArray bytes;
        SampleAnswer sample;
        sample.outcome = run(fields, step, bytes);
        if (sample.outcome != SchemaOutcome::Checked)
            return sample;
        Answer answer(bytes);
        sample.wanted = ReadFaults(answer).wanted;
        sample.text = answer.units();
        sample.remarks = answer.texts();
        sample.outcome = answer.good ? SchemaOutcome::Checked : SchemaOutcome::Failed;
        return sample;
    }

    SchemaAnswer CheckBy(const SchemaRequest& request, const std::vector<text::LongText>& documents,
                         const std::function<bool()>& step) override {
        Fields fields = RequestFields(Task::CheckDocuments, request, limits_);
        fields.add(qint64(documents.size()));
        for (const text::LongText& document : documents)
            fields.add(Units(document));
        QByteArray bytes;
        const SchemaOutcome outcome = run(fields, step, bytes);
        Answer answer(bytes);
        return outcome == SchemaOutcome::Checked ? ReadFaults(answer) : SchemaAnswer{outcome, {}, {}};
    }

private:
    SchemaOutcome run(const Fields& request, const std::function<bool()>& step, QByteArray& answer) const {
        QProcess process;
        process.setStandardErrorFile(QProcess::nullDevice());
        process.start(program(), {});
        process.write(request.all());
        process.closeWriteChannel();
        if (const SchemaOutcome outcome = wait(process, step); outcome != SchemaOutcome::Checked) {
            process.kill();
            process.waitForFinished();
            return outcome;
        }
        if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
            return failureOf(process);
        answer = process.readAllStandardOutput();
        return SchemaOutcome::Checked;
    }

    QString program() const {
        return program_.isEmpty()
                   ? QCoreApplication::applicationDirPath() + QStringLiteral("/vantrel-schemas")
                   : program_;
    }

    // The program has bounds of its own; this one is for a machine that hardly lets it run.
    SchemaOutcome wait(QProcess& process, const std::function<bool()>& step) const {
        QElapsedTimer clock;
        clock.start();
        while (!process.waitForFinished(kStep)) {
            if (process.state() == QProcess::NotRunning)
                break;
            if (step && !step())
                return SchemaOutcome::Cancelled;
            if (clock.elapsed() > qint64(limits_.seconds) * 4000)
                return SchemaOutcome::TooLong;
        }
        return process.error() == QProcess::FailedToStart ? SchemaOutcome::Failed : SchemaOutcome::Checked;
    }

    // The system ends one that used up its time with a signal, and one that can't have a stack with another.
    static SchemaOutcome failureOf(const QProcess& process) {
        if (process.exitStatus() == QProcess::CrashExit &&
            (process.exitCode() == SIGXCPU || process.exitCode() == SIGKILL))
            return SchemaOutcome::TooLong;
        return process.exitCode() == kOutOfMemory ? SchemaOutcome::TooLarge : SchemaOutcome::Failed;
    }

    QString program_;
    SchemaLimits limits_;
};

} // namespace

std::unique_ptr<Schemas> MakeSchemas(const QString& program, const SchemaLimits& limits) {
    return std::make_unique<ProcessSchemas>(program, limits);
}

} // namespace services
