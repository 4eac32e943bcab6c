// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/OpenDialog.h"
#include "core/model/FileNames.h"

namespace shell {

namespace {

// "html" stands twice and "htm" not at all: quirk 13.
const QString kPatterns = QStringLiteral(
    "*.xml;*.xsd;*.wsdl;*.uddi;*.biz;*.svg;*.tsd;*.vml;*.vxml;*.xdr;*.xsl;*.xslt;*.wml;*.cml;*.dtd;*.dcd;"
    "*.xhtml;*.html;*.html;*.txt;*.csv;*.asp;*.jsp;*.aspx;*.css;*.fo;*.mml;*.math;*.mtx;*.rdf;*.smil");
const QString kAllFiles = QStringLiteral("All Files (*.*)|*.*");

} // namespace

QString GetFileNameByFilter(Application& app, const QString& filter) {
    return app.services.prompts.OpenFileName(
        QStringLiteral("Open file"), filter.isEmpty() ? kAllFiles : filter + QLatin1Char('|') + kAllFiles);
}

void OpenXMLFile(Application& app, Windows& windows) {
    const QString filter = QStringLiteral("XML;Schema; etc.(") + kPatterns + QStringLiteral(")|") +
                           kPatterns + QStringLiteral("|XML File (*.xml)|*.xml|Schema File (*.xsd)|*.xsd");
    const QString name = GetFileNameByFilter(app, filter);
    // A picture or a program was hardly meant to be edited: such a choice is passed over without a word.
    if (!name.isEmpty() && !mXMLEdit::IsBinaryFile(name))
        windows.OpenNamed(name);
}

} // namespace shell
