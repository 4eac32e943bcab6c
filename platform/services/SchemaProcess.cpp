// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/Schemas.h"
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <csignal>

namespace services {

namespace {

constexpr int kStep = 100;             // milliseconds
constexpr int kOutOfMemory = 3;        // the exit code
constexpr int kMissing = 1, kNote = 2; // what a finding is, if it is no fault

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
    for (const auto& [address, found] : request.fetched) {
        fields.add(address);
        fields.add(found.address);
        fields.add(found.bytes);
        fields.add(found.complaint);
    }
    return fields;
}

SchemaAnswer Read(Answer& answer) {
    SchemaAnswer result;
    for (int left = answer.number(); left > 0 && answer.good; --left) {
        SchemaFault fault;
        fault.document = answer.text();
        fault.line = answer.number();
        fault.column = answer.number();
        const int kind = answer.number();
        fault.warning = kind == kMissing;
        fault.note = kind == kNote;
        fault.message = answer.text();
        result.faults.push_back(fault);
    }
    result.wanted = answer.texts();
    result.read = answer.texts();
    result.outcome = answer.good ? SchemaOutcome::Checked : SchemaOutcome::Failed;
    return result;
}

class ProcessCheck : public SchemaCheck {
public:
    ProcessCheck(const QString& program, const Fields& request, const SchemaLimits& limits)
        : most_(qint64(limits.seconds) * 4000) {
        clock_.start();
        process_.setStandardErrorFile(QProcess::nullDevice());
        process_.start(program, {});
        process_.write(request.all());
        process_.closeWriteChannel();
    }
    ~ProcessCheck() override { End(); }

    // The program has bounds of its own; this one is for a machine that hardly lets it run.
    bool WaitForEnd(int milliseconds) override {
        if (process_.state() == QProcess::NotRunning || process_.waitForFinished(milliseconds))
            return true;
        tooLong_ = clock_.elapsed() > most_;
        if (tooLong_)
            End();
        return process_.state() == QProcess::NotRunning;
    }

    SchemaAnswer TakeAnswer() override {
        Answer answer(process_.readAllStandardOutput());
        const SchemaOutcome outcome = Outcome();
        return outcome == SchemaOutcome::Checked ? Read(answer) : SchemaAnswer{outcome, {}, {}, {}};
    }
    QByteArray Output() { return process_.readAllStandardOutput(); }
    /// Checked: the program has said all.
    SchemaOutcome Outcome() const {
        if (tooLong_)
            return SchemaOutcome::TooLong;
        const bool good = process_.error() != QProcess::FailedToStart &&
                          process_.exitStatus() == QProcess::NormalExit && process_.exitCode() == 0;
        return good ? SchemaOutcome::Checked : Failure();
    }

private:
    void End() {
        if (process_.state() == QProcess::NotRunning)
            return;
        process_.kill();
        process_.waitForFinished();
    }

    // The system ends one that used up its time with a signal, and one that can't have a stack with another.
    SchemaOutcome Failure() const {
        if (process_.exitStatus() == QProcess::CrashExit &&
            (process_.exitCode() == SIGXCPU || process_.exitCode() == SIGKILL))
            return SchemaOutcome::TooLong;
        return process_.exitCode() == kOutOfMemory ? SchemaOutcome::TooLarge : SchemaOutcome::Failed;
    }

    QProcess process_;
    QElapsedTimer clock_;
    qint64 most_; // milliseconds
    bool tooLong_ = false;
};

// Until it has come to its end; false cancels.
bool Wait(SchemaCheck& check, const std::function<bool()>& step) {
    while (!check.WaitForEnd(kStep)) {
        if (step && !step())
            return false;
    }
    return true;
}

class ProcessSchemas : public Schemas {
public:
    ProcessSchemas(QString program, const SchemaLimits& limits)
        : program_(std::move(program)), limits_(limits) {}

    std::unique_ptr<SchemaCheck> Begin(const SchemaRequest& request) override {
        const Task task = request.schema ? Task::CheckSchema : Task::CheckDocument;
        return std::make_unique<ProcessCheck>(Program(), RequestFields(task, request, limits_), limits_);
    }

    SampleAnswer MakeSample(const SchemaRequest& request, const SampleWish& wish,
                            const std::function<bool()>& step) override {
        Fields fields = RequestFields(Task::MakeSample, request, limits_);
        fields.add(qint64(wish.amount));
        fields.add(qint64(wish.seed));
        for (const QString& part : {wish.targetNamespace, wish.root, wish.encoding, wish.location})
            fields.add(Units(part));
        ProcessCheck work(Program(), fields, limits_);
        SampleAnswer sample;
        sample.outcome = Wait(work, step) ? work.Outcome() : SchemaOutcome::Cancelled;
        if (sample.outcome != SchemaOutcome::Checked)
            return sample;
        Answer answer(work.Output());
        sample.wanted = Read(answer).wanted;
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
        ProcessCheck work(Program(), fields, limits_);
        return Wait(work, step) ? work.TakeAnswer() : SchemaAnswer{SchemaOutcome::Cancelled, {}, {}, {}};
    }

private:
    QString Program() const {
        return program_.isEmpty()
                   ? QCoreApplication::applicationDirPath() + QStringLiteral("/vantrel-schemas")
                   : program_;
    }

    QString program_;
    SchemaLimits limits_;
};

} // namespace

SchemaAnswer Schemas::Check(const SchemaRequest& request, const std::function<bool()>& step) {
    const std::unique_ptr<SchemaCheck> check = Begin(request);
    return Wait(*check, step) ? check->TakeAnswer() : SchemaAnswer{SchemaOutcome::Cancelled, {}, {}, {}};
}

std::unique_ptr<Schemas> MakeSchemas(const QString& program, const SchemaLimits& limits) {
    return std::make_unique<ProcessSchemas>(program, limits);
}

} // namespace services
