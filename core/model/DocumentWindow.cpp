// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/DocumentWindow.h"
#include <utility>

namespace {

// The pictures that nodes name, in the order of the control's list. The kinds without an "open" form can't be
// shown in the tree.
const QStringList& ImageKeys() {
    static const QStringList keys{"element",
                                  "attribute",
                                  "text",
                                  "cdatasection",
                                  "entity",
                                  "entityreference",
                                  "processinginstruction",
                                  "comment",
                                  "document",
                                  "documenttype",
                                  "documentfragment",
                                  "xmlroot",
                                  "openxmlroot",
                                  "openprocessinginstruction",
                                  "opencomment",
                                  "openelement",
                                  "opentext",
                                  "opendocumenttype",
                                  "opencdatasection",
                                  "xmlrootelement",
                                  "openxmlrootelement"};
    return keys;
}

} // namespace

DocumentWindow::DocumentWindow(Application& application, const WindowKind& windowKind)
    : app(application), kind(windowKind) {
    tvXML.ImageList = ImageKeys();
}

void DocumentWindow::SetCaption(const QString& name) {
    if (Caption == name && Tag == name)
        return;
    Caption = name;
    Tag = name;
    captionChanged();
}

void DocumentWindow::SetUnsaved(bool unsaved) {
    if (std::exchange(bUnsaved, unsaved) != unsaved)
        captionChanged();
}
