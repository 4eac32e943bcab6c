// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/Vocabulary.h"
#include "schema/Extensions.h"
#include "schema/SchemaState.h"
#include <cstring>

namespace schema {

namespace {

struct Row {
    const char* element;
    const char* attributes;
};
// "targetNameSpace" and "memberType" are spelled as users of the list know them.
constexpr Row kVocabulary[] = {
    {"element", "name,id,ref,type,substitutionGroup,abstract,block,default,final,fixed,"
                "form,nillable,minOccurs,maxOccurs"},
    {"attribute", "name,id,ref,type,default,fixed,form,use"},
    {"complexType", "name,id,mixed,abstract,block,final"},
    {"simpleType", "name,id,final"},
    {"sequence", "id,minOccurs,maxOccurs"},
    {"all", "id,minOccurs,maxOccurs"},
    {"choice", "id,minOccurs,maxOccurs"},
    {"restriction", "id,base"},
    {"extension", "id,base"},
    {"list", "id,itemType"},
    {"union", "id,memberType"},
    {"include", "id,schemaLocation"},
    {"redefine", "id,schemaLocation"},
    {"import", "id,namespace,schemaLocation"},
    {"schema", "id,targetNameSpace,version,attributeFormDefault,blockDefault,"
               "elementFormDefault,finalDefault,xmlns,xmlns:xsd,xml:lang"},
    {"simpleContent", "id"},
    {"complexContent", "id,mixed"},
    {"attributeGroup", "name,id,ref"},
    {"keyref", "name,id,ref"},
    {"unique", "name,id"},
    {"key", "name,id"},
    {"selector", "id,xpath"},
    {"field", "id,xpath"},
    {"anyAttribute", "id,namespace,processContents"},
    {"group", "name,ref,minOccurs,maxOccurs"},
    {"any", "id,namespace,processContents,minOccurs,maxOccurs"},
    {"annotation", "id"},
    {"appinfo", "source"},
    {"documentation", "source,xml:lang"},
    {"notation", "name,id,public,system"},
};

// Further attributes of element declarations.
constexpr char kMsSql[] = ",sql:relation,sql:field,sql:datatype,sql:is-constant,sql:mapped,"
                          "sql:relationship,sql:limit-field,sql:limit-value,sql:key-fields,"
                          "sql:prefix,sql:use-cdata,sql:encode,sql:overflow-field,sql:hide,"
                          "sql:identity,sql:guid,sql:max-depth";
constexpr char kOracle[] = ",xdb:SQLName,xdb:SQLType,xdb:SQLSchema,xdb:JavaType,xdb:defaultTable,"
                           "xdb:defaultTableSchema,xdb:columnProps,xdb:tableProps,xdb:SQLInline,"
                           "xdb:BeanClassName,xdb:maintainDOM,xdb:defaultACL,xdb:isFolder,"
                           "xdb:userPrivileges";

} // namespace

QStringList GetSystemAttributes(DocumentWindow& window, const QString& localName) {
    for (const Row& row : kVocabulary) {
        if (localName != QLatin1String(row.element))
            continue;
        QString list = QLatin1String(row.attributes);
        if (std::strcmp(row.element, "element") == 0) {
            list += OffersMSSQL(window) ? QLatin1String(kMsSql) : QLatin1String();
            list += OffersOracle(window) ? QLatin1String(kOracle) : QLatin1String();
        }
        return list.split(u',');
    }
    return {};
}

QStringList AttributesOffered(DocumentWindow& window, const QString& elementName) {
    return GetSystemAttributes(window, LocalName(elementName));
}

} // namespace schema
