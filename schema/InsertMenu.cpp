// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/InsertMenu.h"
#include <algorithm>
#include <array>

namespace schema {

namespace {

// Users know "appInfo" with its capital letter; it isn't the language's own spelling, so what it makes is
// offered nothing further.
constexpr InsertEntry kEntries[] = {
    {"mnuNewSElement", "element"},
    {"mnuNewSAttribute", "attribute"},
    {"mnuNewSAttrG", "attributeGroup"},
    {"mnuNewSGroup", "group"},
    {"mnuNewSComplexType", "complexType"},
    {"mnuNewSSimpleType", "simpleType"},
    {"mnuNewSAnnotation", "annotation"},
    {"mnuNewSDoc", "documentation"},
    {"mnuNewSNotation", "notation"},
    {"mnuNewSCContent", "complexContent"},
    {"mnuNewSSContent", "simpleContent"},
    {"mnuNewSExt", "extension"},
    {"mnuNewSRestriction", "restriction"},
    {"mnuNewSSchema", "schema"},
    {"mnuNewSAny", "any"},
    {"mnuNewSAnyAttr", "anyAttribute"},
    {"mnuNewSAppInfo", "appInfo"},
    {"mnuNewSEnum", "enumeration"},
    {"mnuNewSField", "field"},
    {"mnuNewSImport", "import"},
    {"mnuNewSInclude", "include"},
    {"mnuNewSKey", "key"},
    {"mnuNewSKeyRef", "keyref"},
    {"mnuNewSLength", "length"},
    {"mnuNewSList", "list"},
    {"mnuNewSMInc", "maxInclusive"},
    {"mnuNewSMExc", "maxExclusive"},
    {"mnuNewSMLen", "maxLength"},
    {"mnuNewSMiInc", "minInclusive"},
    {"mnuNewSMiExc", "minExclusive"},
    {"mnuNewSMiLen", "minLength"},
    {"mnuNewSFDig", "fractionDigits"},
    {"mnuNewSTDig", "totalDigits"},
    {"mnuNewSWSpace", "whiteSpace"},
    {"mnuNewSPattern", "pattern"},
    {"mnuNewSRedefine", "redefine"},
    {"mnuNewSSelector", "selector"},
    {"mnuNewSUnion", "union"},
    {"mnuNewSUnique", "unique"},
    {"mnuNewSSeq", "sequence"},
    // A choice is a sequence that is switched in the list.
    {"mnuNewSChoice", "choice", false},
    {"mnuNewSAll", "all"},
};

/// What an element is offered: the entries without the "mnuNewS" that all of them begin with.
struct Row {
    const char* element;
    const char* entries;
};
constexpr Row kOffers[] = {
    {"schema", "Include Import Redefine Annotation "
               "ComplexType SimpleType Group AttrG "
               "Element Attribute Notation"},
    {"element", "Annotation ComplexType SimpleType Unique "
                "Key KeyRef"},
    {"complexType", "Annotation SContent CContent Group "
                    "All Choice Seq Attribute AttrG "
                    "AnyAttr"},
    {"simpleType", "Annotation Restriction List Union"},
    {"attribute", "Annotation SimpleType"},
    {"sequence", "Annotation Element Group All "
                 "Choice Seq Any"},
    {"choice", "Annotation Element Group All "
               "Choice Seq Any"},
    {"all", "Annotation Element"},
    {"restriction", "Annotation SimpleType MiExc MiInc "
                    "MExc MInc TDig FDig Length "
                    "MiLen MLen Enum WSpace Pattern "
                    "Attribute AttrG AnyAttr Group All "
                    "Choice Seq"},
    {"extension", "Annotation Group All Choice Seq "
                  "Attribute AttrG AnyAttr"},
    {"redefine", "Annotation ComplexType SimpleType Group "
                 "AttrG"},
    {"simpleContent", "Annotation Restriction Ext"},
    {"complexContent", "Annotation Restriction Ext"},
    {"attributeGroup", "Annotation Attribute AttrG AnyAttr"},
    {"unique", "Annotation Selector Field"},
    {"key", "Annotation Selector Field"},
    {"keyref", "Annotation Selector Field"},
    {"group", "Annotation All Choice Seq"},
    {"list", "Annotation"},
    {"union", "Annotation"},
    {"include", "Annotation"},
    {"import", "Annotation"},
    {"selector", "Annotation"},
    {"field", "Annotation"},
    {"anyAttribute", "Annotation"},
    {"any", "Annotation"},
    {"notation", "Annotation"},
    {"annotation", "AppInfo Doc"},
};

} // namespace

std::span<const InsertEntry, kInsertEntries> InsertEntries() {
    return kEntries;
}

bool OffersInsert(const QString& element, QLatin1String entry) {
    static constexpr QLatin1String kFamily("mnuNewS");
    const auto row = std::find_if(std::begin(kOffers), std::end(kOffers),
                                  [&](const Row& one) { return element == QLatin1String(one.element); });
    if (row == std::end(kOffers) || !entry.startsWith(kFamily))
        return false;
    const QString offered = u' ' + QLatin1String(row->entries) + u' ';
    return offered.contains(u' ' + entry.mid(kFamily.size()) + u' ');
}

} // namespace schema
