// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/services/Services.h"
#include <QString>
#include <cstdint>
#include <deque>
#include <functional>
#include <initializer_list>
#include <optional>
#include <vector>

namespace test {

/// A message box as the user saw it.
struct Box {
    QString text;
    services::Buttons buttons;
    services::Icon icon;
    QString title;
    QString about;
};

/// A question with answers of its own, as the user saw it.
struct AskedChoice {
    QString text;
    QStringList answers;
    int usual;
};

/// A file dialog as the user saw it.
struct FileDialog {
    bool save;
    QString title;
    QString filter;
    QString suggested; ///< save dialogs only
};

/// The person before the screen: records every box and dialog and answers from queues. One that no answer was
/// prepared for fails the test (and gets Ok, No or an empty name); so does an answer that wasn't asked for.
class ScriptedPrompts : public services::Prompts {
public:
    ~ScriptedPrompts() override;

    // --- preparing -----------------------------------------------------------------------------------
    /// Answers for the next boxes, in order; one each, also for a box with OK alone.
    void Answer(std::initializer_list<services::Answer> answers);
    void Answer(services::Answer answer) { Answer({answer}); }
    /// Answers for the next questions whether a document may be written anew although that drops content, in
    /// order; OK where there is none. These boxes are kept apart, in `rewritings`.
    void AnswerRewriting(std::initializer_list<services::Answer> answers);
    /// Names for the next file dialogs, in order; an empty name cancels.
    void Choose(const QString& fileName) { fileNames_.push_back(fileName); }
    /// Answers to the next questions with answers of their own, by number; -1 closes the box.
    void AnswerChoice(std::initializer_list<int> numbers);
    /// Choices for the next colour and font dialogs, in order; nothing cancels.
    void ChooseColours(std::initializer_list<std::optional<std::uint32_t>> colours);
    void ChooseFonts(std::initializer_list<std::optional<services::FontChoice>> fonts);
    /// From now on boxes without an answer don't fail the test: they get `fallback` (OK boxes get Ok).
    void AllowAnyBox(services::Answer fallback = services::Answer::No);
    /// Runs while a box is open, before it is answered.
    std::function<void(const Box&)> onBox;
    /// Drops answers and names that weren't asked for, so that they don't fail the test.
    void ForgetUnused();

    // --- looking back ----------------------------------------------------------------------------------
    std::vector<Box> boxes;
    std::vector<Box> rewritings;
    std::vector<FileDialog> dialogs;
    std::vector<AskedChoice> questions;
    QStringList shownTexts;
    std::vector<std::uint32_t> colourDialogs;      ///< what each showed as chosen
    std::vector<services::FontChoice> fontDialogs; ///< the same
    int beeps = 0;
    /// The texts of all boxes so far.
    QStringList Texts() const;

    // --- services::Prompts -------------------------------------------------------------------------------
    services::Answer MsgBox(const QString& text, services::Buttons buttons, services::Icon icon,
                            const QString& title, const QString& about = {}) override;
    int Choose(const QString& text, const QStringList& answers, int usual) override;
    void ShowText(const QString&, const QString& text) override { shownTexts << text; }
    QString OpenFileName(const QString& title, const QString& filter) override;
    QString SaveFileName(const QString& title, const QString& filter, const QString& suggested) override;
    std::optional<std::uint32_t> ChooseColour(std::uint32_t present) override;
    std::optional<services::FontChoice> ChooseFont(const services::FontChoice& present) override;
    void Beep() override { ++beeps; }

private:
    QString NextName(const FileDialog& dialog);
    services::Answer NextRewriting(const Box& box);
    std::deque<services::Answer> answers_, rewritingAnswers_;
    std::deque<QString> fileNames_;
    std::deque<int> choices_;
    std::deque<std::optional<std::uint32_t>> colours_;
    std::deque<std::optional<services::FontChoice>> fonts_;
    bool anyBox_ = false;
    services::Answer fallback_ = services::Answer::No;
};

/// A clipboard of its own, so that tests don't share the machine's.
class MemoryClipboard : public services::Clipboard {
public:
    QString text, html, xml;
    void Clear() override { SetContents({}); }
    void SetText(const QString& given) override { SetContents({.text = given}); }
    void SetContents(const services::ClipboardContents& given) override {
        text = given.text;
        html = given.html;
        xml = given.xml;
    }
    QString GetText() override { return text; }
};

/// Records the progress of blocking work; can cancel it.
class ScriptedProgress : public services::Progress {
public:
    int cancelAtStep = -1; ///< 0-based step over all work that says "cancel"; -1: never
    std::vector<QString> begun;
    int steps = 0;
    int ended = 0;

    void Begin(const QString& what) override { begun.push_back(what); }
    bool Step(qint64, qint64) override { return steps++ != cancelAtStep; }
    void End() override { ++ended; }
};

} // namespace test
