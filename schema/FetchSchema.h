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

    /// Asks whether to fetch the addresses that weren't tried yet, naming them, and does so; a No is one for
    /// all that come later, too. True when anything came, or why it didn't.
    bool FetchAll(const QStringList& addresses);
    /// The bytes at an address; nothing where the user declines, or where it can't be had, which status panel
    /// 1 tells.
    std::optional<QByteArray> Fetch(const QString& address);

private:
    bool MayFetch(const QStringList& addresses);
    bool MayFollow(const QString& from, const QString& to);
    std::optional<QByteArray> Get(const QString& address);
    QByteArray Keep(const QStringList& addresses, const services::FetchedSchema& found);

    Application& app_;
    std::map<QString, services::FetchedSchema> found_;
    std::set<QString> tried_;
    bool stopped_ = false; ///< the user has declined one, or cancelled
};

} // namespace schema
