// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/ScriptedPrompts.h"
#include "core/edit/Rewriting.h"
#include <gtest/gtest.h>

namespace test {

using services::Buttons;

ScriptedPrompts::~ScriptedPrompts() {
    EXPECT_TRUE(answers_.empty()) << answers_.size() << " prepared answers were not asked for";
    EXPECT_TRUE(rewritingAnswers_.empty()) << rewritingAnswers_.size() << " were not asked for";
    EXPECT_TRUE(fileNames_.empty()) << fileNames_.size() << " prepared file names were not asked for";
    EXPECT_TRUE(choices_.empty()) << choices_.size() << " prepared choices were not asked for";
    EXPECT_TRUE(colours_.empty()) << colours_.size() << " prepared colours were not asked for";
    EXPECT_TRUE(fonts_.empty()) << fonts_.size() << " prepared fonts were not asked for";
}

void ScriptedPrompts::Answer(std::initializer_list<services::Answer> answers) {
    answers_.insert(answers_.end(), answers);
}

void ScriptedPrompts::AnswerRewriting(std::initializer_list<services::Answer> answers) {
    rewritingAnswers_.insert(rewritingAnswers_.end(), answers);
}

services::Answer ScriptedPrompts::NextRewriting(const Box& box) {
    rewritings.push_back(box);
    if (rewritingAnswers_.empty())
        return services::Answer::Ok;
    const services::Answer answer = rewritingAnswers_.front();
    rewritingAnswers_.pop_front();
    return answer;
}

void ScriptedPrompts::AnswerChoice(std::initializer_list<int> numbers) {
    choices_.insert(choices_.end(), numbers);
}

void ScriptedPrompts::ChooseColours(std::initializer_list<std::optional<std::uint32_t>> colours) {
    colours_.insert(colours_.end(), colours);
}

void ScriptedPrompts::ChooseFonts(std::initializer_list<std::optional<services::FontChoice>> fonts) {
    fonts_.insert(fonts_.end(), fonts);
}

void ScriptedPrompts::AllowAnyBox(services::Answer fallback) {
    anyBox_ = true;
    fallback_ = fallback;
}

void ScriptedPrompts::ForgetUnused() {
    answers_.clear();
    rewritingAnswers_.clear();
    fileNames_.clear();
    choices_.clear();
    colours_.clear();
    fonts_.clear();
}

QStringList ScriptedPrompts::Texts() const {
    QStringList texts;
    for (const Box& box : boxes)
        texts << box.text;
    return texts;
}

services::Answer ScriptedPrompts::MsgBox(const QString& text, Buttons buttons, services::Icon icon,
                                         const QString& title, const QString& about) {
    if (title == edit::RewritingTitle())
        return NextRewriting({text, buttons, icon, title, about});
    boxes.push_back({text, buttons, icon, title, about});
    if (onBox)
        onBox(boxes.back());
    if (!answers_.empty()) {
        const auto answer = answers_.front();
        answers_.pop_front();
        return answer;
    }
    if (!anyBox_)
        ADD_FAILURE() << "unexpected message box \"" << title.toStdString() << "\": " << text.toStdString();
    return buttons == Buttons::Ok ? services::Answer::Ok : fallback_;
}

namespace {

template <typename Choice> Choice Next(std::deque<Choice>& choices, const std::string& dialog) {
    if (choices.empty()) {
        ADD_FAILURE() << "unexpected " << dialog << " dialog";
        return {};
    }
    const Choice choice = choices.front();
    choices.pop_front();
    return choice;
}

} // namespace

int ScriptedPrompts::Choose(const QString& text, const QStringList& answers, int usual) {
    questions.push_back({text, answers, usual});
    if (!choices_.empty())
        return Next(choices_, {});
    ADD_FAILURE() << "unexpected question: " << text.toStdString();
    return -1;
}

QString ScriptedPrompts::NextName(const FileDialog& dialog) {
    dialogs.push_back(dialog);
    return Next(fileNames_, '"' + dialog.title.toStdString() + '"');
}

QString ScriptedPrompts::OpenFileName(const QString& title, const QString& filter) {
    return NextName({false, title, filter, {}});
}

QString ScriptedPrompts::SaveFileName(const QString& title, const QString& filter, const QString& suggested) {
    return NextName({true, title, filter, suggested});
}

std::optional<std::uint32_t> ScriptedPrompts::ChooseColour(std::uint32_t present) {
    colourDialogs.push_back(present);
    return Next(colours_, "colour");
}

std::optional<services::FontChoice> ScriptedPrompts::ChooseFont(const services::FontChoice& present) {
    fontDialogs.push_back(present);
    return Next(fonts_, "font");
}

} // namespace test
