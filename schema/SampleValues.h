// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include "schema/GlobalDeclarations.h"
#include <QHash>
#include <QString>

// Sample values for simple types: from a table, or from the facets of the schema's own types.
namespace schema {

struct Sample {
    QString value;            ///< escaped; empty where there is none
    controls::TreeNode facet; ///< the node of the schema that it was taken from, where it is worth showing
};

/// The samples of one instance. Types are looked at once each, and a circle of them has no sample. All of
/// them together are held to 16 million characters: a long value may be used a thousand times (quirk 165).
class SampleValues {
public:
    SampleValues(Application& app, const GlobalDeclarations& declarations)
        : app_(app), declarations_(declarations) {}

    /// Of a type by its local name, in its very case: a built-in one, else a simple type of the schema.
    Sample GetSampleData(const QString& typeName);
    /// Of a simple type, or of the one that a declaration holds. The first facet that there is decides.
    Sample GetSimpleTypeSample(controls::TreeNode node);

    /// So many more characters go into the instance. False once it is full.
    bool spend(qsizetype characters);
    bool isFull() const;
    /// Whether anything is missing because it is too long.
    bool leftOut() const { return tooLong_ || isFull(); }

private:
    /// What a type itself says: a sample, or the name of the type that has it.
    struct Step {
        Sample sample;
        QString base;
    };
    Step step(controls::TreeNode node);
    QString GetPatternSample(controls::TreeNode pattern);
    static QString GetEnumerationSample(controls::TreeNode enumeration);

    Application& app_;
    const GlobalDeclarations& declarations_;
    QHash<QString, Sample> known_;                     ///< by the name of the type
    QHash<const controls::TreeNodeData*, Sample> own_; ///< by the declaration
    qsizetype spent_ = 0;
    bool tooLong_ = false;
};

} // namespace schema
