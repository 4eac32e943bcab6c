// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include "platform/services/Schemas.h"
#include <QByteArray>
#include <QStringList>
#include <map>
#include <optional>
#include <set>

// Schemas from the net.
namespace schema {

/// What one check, or one look at a schema, fetches. An address is fetched only where the user has said so,
/// and tried once; so is one at another host that it leads on to.
class SchemaFetch {
public:
    explicit SchemaFetch(Application& app) : app_(app) {}

    /// By the address that was asked for, and by each that it led on to.
    const std::map<QString, services::FetchedSchema>& found() const { return found_; }

    /// Asks for each address that wasn't tried yet whether to fetch it, and does so. True when anything came.
    bool FetchAll(const QStringList& addresses);
    /// The bytes at an address; nothing where the user declines, or where it can't be had, which status panel
    /// 1 tells.
    std::optional<QByteArray> Fetch(const QString& address);

private:
    QByteArray Keep(const QStringList& addresses, const services::FetchedSchema& found);

    Application& app_;
    std::map<QString, services::FetchedSchema> found_;
    std::set<QString> tried_;
};

} // namespace schema
