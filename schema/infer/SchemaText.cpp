// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/infer/SchemaText.h"
#include "core/model/Escaping.h"
#include "schema/infer/ContentModel.h"
#include "schema/infer/SchemaLines.h"
#include <algorithm>

namespace schema {

namespace {

constexpr int kDeepest = 12; // levels of types inside types; below them they get names

QString Occurs(std::uint32_t least, std::uint32_t most) {
    QString text;
    if (least != 1)
        text += QStringLiteral(" minOccurs=\"%1\"").arg(least);
    if (most == Factor::kMany)
        text += QStringLiteral(" maxOccurs=\"unbounded\"");
    else if (most != 1)
        text += QStringLiteral(" maxOccurs=\"%1\"").arg(most);
    return text;
}

/// Where declarations of elements stand: decided once for all schemas.
class Plan {
public:
    explicit Plan(const DocumentFacts& facts)
        : global_(facts.elements.size()), named_(facts.elements.size()) {
        std::vector<int> uses(facts.elements.size());
        for (std::uint32_t number = 0; number < facts.elements.size(); ++number) {
            const ElementFacts& element = *facts.elements[number];
            global_[number] = element.root;
            for (const std::uint32_t parent : element.parents) {
                const ElementFacts& above = *facts.elements[parent];
                global_[number] = global_[number] || above.name.space != element.name.space || above.typed ||
                                  above.order.IsVeryWide();
            }
            uses[number] = static_cast<int>(element.parents.size()) + (element.root ? 1 : 0);
            named_[number] = uses[number] > 1;
        }
        NameDeepOnes(facts);
    }
    bool IsGlobal(std::uint32_t element) const { return global_[element]; }
    bool HasNamedType(std::uint32_t element) const { return named_[element]; }

private:
    // From each that has a name, down; what is inside itself has one.
    void NameDeepOnes(const DocumentFacts& facts) {
        std::vector<std::pair<std::uint32_t, int>> open;
        for (std::uint32_t number = 0; number < facts.elements.size(); ++number) {
            if (named_[number] || global_[number])
                open.emplace_back(number, 0);
        }
        while (!open.empty()) {
            const auto [number, level] = open.back();
            open.pop_back();
            for (const ChildFacts& child : facts.elements[number]->order.children) {
                if (named_[child.element] || global_[child.element])
                    continue;
                named_[child.element] = level >= kDeepest;
                open.emplace_back(child.element, named_[child.element] ? 0 : level + 1);
            }
        }
    }
    std::vector<bool> global_, named_;
};

/// Writes the schema of one namespace.
class Writer {
public:
    Writer(const DocumentFacts& facts, const Plan& plan, const SchemaForm& form,
           const std::vector<InferredSchema>& files, const QString& space)
        : facts_(facts), plan_(plan), form_(form), files_(files), space_(space) {}

    QString Write() {
        for (std::uint32_t number = 0; number < facts_.elements.size(); ++number) {
            if (facts_.elements[number]->name.space == space_ && plan_.IsGlobal(number))
                PutElement(number, {}, true);
        }
        for (const auto& [name, values] : facts_.globalAttributes) {
            if (name.space == space_)
                PutAttribute(name.local, values, {});
        }
        for (std::uint32_t number = 0; number < facts_.elements.size(); ++number) {
            if (facts_.elements[number]->name.space == space_ && plan_.HasNamedType(number) &&
                IsComplex(number))
                PutType(number, QStringLiteral(" name=\"%1\"").arg(TypeName(number)));
        }
        if (usesBlank_)
            PutBlankType();
        return Head() + lines_.Text() + QStringLiteral("</xs:schema>\r\n");
    }

private:
    // --- elements ------------------------------------------------------------------------------------------
    bool HasContent(const ElementFacts& element) const { return !element.order.children.empty(); }
    bool IsBlank(const ElementFacts& element) const { return !HasContent(element) && !element.text; }
    bool IsComplex(std::uint32_t number) const {
        const ElementFacts& element = *facts_.elements[number];
        return !element.typed && (HasContent(element) || !element.attributes.empty() ||
                                  (IsBlank(element) && !form_.blankTexts && element.count > 0));
    }
    QString TypeName(std::uint32_t number) const {
        return facts_.elements[number]->name.local + QStringLiteral("Type");
    }

    void PutElement(std::uint32_t number, const QString& occurs, bool global) {
        const ElementFacts& element = *facts_.elements[number];
        if (!global && plan_.IsGlobal(number)) {
            lines_.Put(QStringLiteral("element ref=\"") + Reference(element.name) + u'"' + occurs);
            return;
        }
        QString head = QStringLiteral("element name=\"%1\"").arg(element.name.local);
        const QString nil = element.nil ? QStringLiteral(" nillable=\"true\"") : QString();
        if (element.typed) {
            lines_.Put(head + QStringLiteral(" type=\"xs:anyType\"") + nil + occurs);
        } else if (IsComplex(number) && plan_.HasNamedType(number)) {
            lines_.Put(head + QStringLiteral(" type=\"%1\"").arg(Own(TypeName(number))) + nil + occurs);
        } else if (IsComplex(number)) {
            lines_.Open(head + nil + occurs);
            PutType(number, {});
            lines_.Close(QStringLiteral("element"));
        } else {
            PutSimple(head + nil + occurs, QStringLiteral("element"), SimpleTypeOf(element), element.values);
        }
    }

    QString SimpleTypeOf(const ElementFacts& element) {
        if (!IsBlank(element) || element.count == 0)
            return QStringLiteral("xs:") + element.values.BuiltIn();
        usesBlank_ = true;
        return Own(kBlank);
    }

    // A declaration with a type of the language, or with the few values that it has.
    void PutSimple(const QString& head, const QString& name, const QString& type, const ValueFacts& values) {
        const QStringList all = values.Enumeration();
        if (all.isEmpty() || !type.startsWith(QStringLiteral("xs:"))) {
            lines_.Put(head + QStringLiteral(" type=\"%1\"").arg(type));
            return;
        }
        lines_.Open(head);
        PutEnumeration({}, type, all);
        lines_.Close(name);
    }
    void PutEnumeration(const QString& name, const QString& type, const QStringList& all) {
        lines_.Open(QStringLiteral("simpleType") + name);
        lines_.Open(QStringLiteral("restriction base=\"%1\"").arg(type));
        for (const QString& one : all)
            lines_.Put(QStringLiteral("enumeration value=\"%1\"").arg(mXMLEdit::convertStringToXML(one)));
        lines_.Close(QStringLiteral("restriction"));
        lines_.Close(QStringLiteral("simpleType"));
    }

    // --- complex types -------------------------------------------------------------------------------------
    void PutType(std::uint32_t number, const QString& name) {
        const ElementFacts& element = *facts_.elements[number];
        const bool mixed = HasContent(element) && (element.mixed || element.text);
        const QString head =
            QStringLiteral("complexType") + name + (mixed ? QStringLiteral(" mixed=\"true\"") : QString());
        const bool simple = !HasContent(element) && (element.text || form_.blankTexts);
        if (!simple && !HasContent(element) && element.attributes.empty())
            return lines_.Put(head);
        lines_.Open(head);
        if (simple) {
            lines_.Open(QStringLiteral("simpleContent"));
            lines_.Open(QStringLiteral("extension base=\"%1\"").arg(SimpleTypeOf(element)));
        }
        if (HasContent(element))
            PutContent(element);
        PutAttributes(element);
        if (simple) {
            lines_.Close(QStringLiteral("extension"));
            lines_.Close(QStringLiteral("simpleContent"));
        }
        lines_.Close(QStringLiteral("complexType"));
    }

    void PutContent(const ElementFacts& element) {
        if (element.order.IsVeryWide())
            return PutAny(element.order);
        const ContentModel model = ContentModelOf(element.order, element.count);
        const QString group = model.all ? QStringLiteral("all") : QStringLiteral("sequence");
        const bool single = model.factors.size() == 1 && model.factors[0].children.size() > 1;
        if (!single)
            lines_.Open(group);
        for (const Factor& factor : model.factors)
            PutFactor(element.order, factor);
        if (!single)
            lines_.Close(group);
    }
    // Any of the elements that are declared for all: those of so many children are.
    void PutAny(const OrderFacts& order) {
        std::set<QString> spaces;
        for (const ChildFacts& child : order.children)
            spaces.insert(facts_.elements[child.element]->name.space);
        QStringList names;
        for (const QString& one : spaces) {
            names << (one.isEmpty() ? QStringLiteral("##local") : mXMLEdit::convertStringToXML(one));
            if (one != space_)
                imported_.insert(one);
        }
        lines_.Open(QStringLiteral("sequence"));
        lines_.Put(QStringLiteral("any namespace=\"%1\" minOccurs=\"0\" maxOccurs=\"unbounded\"")
                       .arg(names.join(u' ')));
        lines_.Close(QStringLiteral("sequence"));
    }
    void PutFactor(const OrderFacts& order, const Factor& factor) {
        const QString occurs = Occurs(factor.least, factor.most);
        if (factor.children.size() == 1)
            return PutElement(order.children[factor.children[0]].element, occurs, false);
        lines_.Open(QStringLiteral("choice") + occurs);
        for (const std::uint32_t child : factor.children)
            PutElement(order.children[child].element, {}, false);
        lines_.Close(QStringLiteral("choice"));
    }

    // What the xml prefix means has types of its own, which not all values in the world keep to.
    void PutAttributes(const ElementFacts& element) {
        bool any = false;
        for (const auto& [name, facts] : element.attributes) {
            const bool odd =
                name.space == QLatin1String(DocumentFacts::kXml) && !KeepsToXml(name.local, facts.values);
            any = any || odd;
            if (!odd)
                PutUse(element, name, facts);
        }
        if (any)
            lines_.Put(QStringLiteral("anyAttribute namespace=\"%1\" processContents=\"skip\"")
                           .arg(QLatin1String(DocumentFacts::kXml)));
    }
    bool KeepsToXml(const QString& name, std::uint32_t values) const {
        if (form_.plainXml)
            return false;
        if (name == QStringLiteral("lang"))
            return facts_.values[values]->AreLanguages();
        return name == QStringLiteral("space") || name == QStringLiteral("base") ||
               name == QStringLiteral("id");
    }

    void PutUse(const ElementFacts& element, const ExpandedName& name,
                const ElementFacts::AttributeFacts& facts) {
        const QString use = facts.count == element.all ? QStringLiteral(" use=\"required\"") : QString();
        if (name.space.isEmpty())
            PutAttribute(name.local, facts.values, use);
        else
            lines_.Put(QStringLiteral("attribute ref=\"%1\"").arg(Reference(name)) + use);
    }
    void PutAttribute(const QString& name, std::uint32_t number, const QString& use) {
        const ValueFacts& values = *facts_.values[number];
        PutSimple(QStringLiteral("attribute name=\"%1\"").arg(name) + use, QStringLiteral("attribute"),
                  QStringLiteral("xs:") + values.BuiltIn(), values);
    }

    void PutBlankType() {
        lines_.Open(QStringLiteral("simpleType name=\"%1\"").arg(kBlank));
        lines_.Open(QStringLiteral("restriction base=\"xs:token\""));
        lines_.Put(QStringLiteral("maxLength value=\"0\""));
        lines_.Close(QStringLiteral("restriction"));
        lines_.Close(QStringLiteral("simpleType"));
    }

    // --- names ---------------------------------------------------------------------------------------------
    QString Own(const QString& name) const { return space_.isEmpty() ? name : QStringLiteral("tns:") + name; }
    QString Reference(const ExpandedName& name) {
        if (name.space == QLatin1String(DocumentFacts::kXml)) {
            imported_.insert(name.space);
            return QStringLiteral("xml:") + name.local;
        }
        if (name.space == space_)
            return Own(name.local);
        imported_.insert(name.space);
        return name.space.isEmpty() ? name.local : PrefixOf(name.space) + u':' + name.local;
    }
    QString PrefixOf(const QString& space) const {
        const auto found = std::find_if(files_.begin(), files_.end(),
                                        [&](const InferredSchema& one) { return one.space == space; });
        return QStringLiteral("ns%1").arg(found - files_.begin() + 1);
    }
    QString FileOf(const QString& space) const {
        for (const InferredSchema& one : files_) {
            if (one.space == space)
                return mXMLEdit::convertStringToXML(QString(one.file).replace(u' ', QStringLiteral("%20")));
        }
        return QStringLiteral("http://www.w3.org/2001/xml.xsd");
    }

    QString Head() const {
        QString head = QStringLiteral("<?xml version=\"1.0\" encoding=\"%1\"?>\r\n"
                                      "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\"")
                           .arg(form_.encoding);
        if (!space_.isEmpty()) {
            const QString target = mXMLEdit::convertStringToXML(space_);
            head +=
                QStringLiteral(" targetNamespace=\"%1\" xmlns:tns=\"%1\" elementFormDefault=\"qualified\"")
                    .arg(target);
        }
        QString imports;
        for (const QString& one : imported_) {
            const QString escaped = mXMLEdit::convertStringToXML(one);
            const bool ofXml = one == QLatin1String(DocumentFacts::kXml);
            if (!one.isEmpty() && !ofXml)
                head += QStringLiteral(" xmlns:%1=\"%2\"").arg(PrefixOf(one), escaped);
            imports += QStringLiteral("\t<xs:import") +
                       (one.isEmpty() ? QString() : QStringLiteral(" namespace=\"%1\"").arg(escaped)) +
                       QStringLiteral(" schemaLocation=\"%1\"/>\r\n").arg(FileOf(one));
        }
        return head + QStringLiteral(">\r\n") + imports;
    }

    static constexpr QLatin1String kBlank{"blank"};
    const DocumentFacts& facts_;
    const Plan& plan_;
    const SchemaForm& form_;
    const std::vector<InferredSchema>& files_;
    const QString space_;
    SchemaLines lines_;
    std::set<QString> imported_;
    bool usesBlank_ = false;
};

std::vector<QString> SpacesOf(const DocumentFacts& facts) {
    std::vector<QString> spaces{facts.elements[facts.roots[0]]->name.space};
    const auto add = [&](const QString& space) {
        if (std::find(spaces.begin(), spaces.end(), space) == spaces.end() &&
            space != QLatin1String(DocumentFacts::kXml))
            spaces.push_back(space);
    };
    for (const auto& element : facts.elements)
        add(element->name.space);
    for (const auto& [name, values] : facts.globalAttributes)
        add(name.space);
    return spaces;
}

} // namespace

std::vector<InferredSchema> SchemasOf(const DocumentFacts& facts, const SchemaForm& form) {
    std::vector<InferredSchema> files;
    if (facts.roots.empty())
        return files;
    const qsizetype dot = form.fileName.lastIndexOf(u'.');
    for (const QString& space : SpacesOf(facts)) {
        const QString number = files.empty() ? QString() : QStringLiteral("-%1").arg(files.size() + 1);
        files.push_back(
            {space, QString(form.fileName).insert(dot < 0 ? form.fileName.size() : dot, number), {}});
    }
    const Plan plan(facts);
    for (InferredSchema& one : files)
        one.text = Writer(facts, plan, form, files, one.space).Write();
    return files;
}

} // namespace schema
