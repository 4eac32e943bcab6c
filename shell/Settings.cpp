// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Settings.h"
#include "core/edit/Guard.h"
#include "core/model/Frame.h"
#include "platform/text/TextTools.h"
#include "textview/ColourStrings.h"
#include "textview/FillText.h"
#include "textview/TextState.h"
#include <QCoreApplication>
#include <QScopedValueRollback>
#include <cmath>

namespace shell {

namespace {

constexpr int kDefaultNodeTextLength = 16;
constexpr int kDefaultToolTipLength = 64;
constexpr int kDefaultSteps = 16;
constexpr double kDefaultTextSize = 10;

constexpr std::uint32_t Colour(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
    return red | green << 8 | blue << 16;
}

class Reader {
public:
    explicit Reader(const services::SettingsStore& store) : store_(store) {}

    QString Text(const char* key, const QString& missing) const {
        const QString value = store_.Get(QLatin1String(kOptionsSection), QLatin1String(key));
        return value.isEmpty() ? missing : value;
    }
    int Number(const char* key, int missing) const {
        const int value = text::ValInt16(Text(key, {}));
        return value == 0 ? missing : value;
    }
    /// Black can't be told from a missing colour: quirk 16.
    std::uint32_t ColourOf(const char* key, std::uint32_t missing) const {
        const auto value = static_cast<std::uint32_t>(text::ValInt32(Text(key, {})));
        return value == 0 ? missing : value;
    }

private:
    const services::SettingsStore& store_;
};

void ReadLengths(const Reader& reader, Options& options) {
    options.TreeNodeTextShowLength = reader.Number("TreeNodeTextShowLength", kDefaultNodeTextLength);
    options.TreeToolTipShowLength = reader.Number("TreeToolTipShowLength", 0);
    // The tool tip's default goes to the node text: quirk 15.
    if (options.TreeToolTipShowLength == 0)
        options.TreeNodeTextShowLength = kDefaultToolTipLength;
}

QString ApplicationFolder() {
    const QString folder = text::Trim(QCoreApplication::applicationDirPath());
    const bool complete = folder.isEmpty() || folder.endsWith(u'/') || folder.endsWith(u'\\');
    return complete ? folder : folder + u'/';
}

/// Where caret and selection of a pane stand; colouring writes the whole content anew and loses them.
class KeptSelection {
public:
    explicit KeptSelection(controls::RichTextBox& pane)
        : pane_(pane), start_(pane.SelStart()), length_(pane.SelLength()) {}
    void Restore() const {
        if (pane_.SelStart() == start_ && pane_.SelLength() == length_)
            return; // a view that was scrolled away from its caret stays
        pane_.SetSelStart(start_);
        pane_.SetSelLength(length_);
    }

private:
    controls::RichTextBox& pane_;
    qsizetype start_, length_;
};

void ShowLook(DocumentWindow& window) {
    const Options& options = window.app.options;
    const QScopedValueRollback ownWriting(textview::StateOf(window).bControlChange, true);
    const KeptSelection first(window.rtxtXML), second(window.rtxtXML2);
    for (controls::RichTextBox* box : {&window.rtxtXML, &window.rtxtXML2, &window.txtSchema})
        box->SetFont(options.TextName, options.TextSize);
    textview::SetTreeXMLColor(window);
    first.Restore();
    second.Restore();
}

} // namespace

void ReadSettings(Application& app) {
    services::SettingsStore& store = app.services.settings;
    const Reader reader(store);
    Options& options = app.options;
    options.Encoding = reader.Text("Encoding", QStringLiteral("UTF-8"));
    ReadLengths(reader, options);
    options.Steps = reader.Number("Steps", kDefaultSteps);
    options.SlashColor = reader.ColourOf("SlashColor", Colour(50, 200, 50));
    options.CommentColor = reader.ColourOf("CommentColor", Colour(180, 180, 180));
    options.GLColor = reader.ColourOf("GLColor", Colour(0, 0, 255));
    options.EqualColor = reader.ColourOf("EqualColor", Colour(255, 50, 50));
    options.TextName = reader.Text("TextName", QStringLiteral("Courier New"));
    const double size = text::Val(reader.Text("TextSize", {}));
    options.TextSize = size > 0 && std::isfinite(size) ? size : kDefaultTextSize;

    const QString debug = reader.Text("Debug", {});
    if (debug.isEmpty())
        store.Save(QLatin1String(kOptionsSection), QStringLiteral("Debug"), QStringLiteral("0"));
    options.Debug = debug == QLatin1String("1");
    options.ApplicationFolder = ApplicationFolder();
}

void SetRTFColorString(Application& app) {
    edit::Guarded(app, QStringLiteral("mXMLEdit@SetRTFColorString"), [&] {
        textview::MakeRTFColorStrings(app.options);
        if (DocumentWindow* window = app.frame().ActiveForm())
            ShowLook(*window);
    });
}

} // namespace shell
