// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/ValueLists.h"
#include "schema/SchemaState.h"

namespace schema {

namespace {

struct Row {
    const char* attributes; ///< with blanks between them
    const char* values;
};
// "unbound" and "xdb:maintDOM" are spelled as users of the list know them: the vocabulary's own
// "xdb:maintainDOM" takes plain text.
constexpr Row kValues[] = {
    {"mixed abstract nillable xdb:SQLInline xdb:maintDOM xdb:isFolder "
     "sql:is-constant sql:mapped sql:use-cdata sql:hide",
     "false,true"},
    {"block", "#all,extension,restriction,substitution"},
    {"final", "#all,extension,restriction"},
    {"maxOccurs", "1,2,3,unbound"},
    {"form", "qualified,unqualified"},
    {"type", "string,boolean,byte,date,dateTime,time,short,integer,long,decimal,"
             "double,float,anyURI,base64Binary,duration,ENTITIES,ENTITY,gDay,gMonth,"
             "gMonthDay,gYear,gYearMonth,hexBinary,ID,IDREF,IDREFS,int,language,Name,"
             "NCName,negativeInteger,NMTOKEN,NMTOKENS,nonNegativeInteger,"
             "nonPositiveInteger,normalizedString,NOTATION,positiveInteger,QName,"
             "token,unsignedByte,unsignedInt,unsignedLong,unsignedShort"},
    {"sql:datatype", "bigint,binary,bit,char,datetime,decimal,float,image,int,money,nchar,"
                     "ntext,nvarchar,numeric,real,smalldatetime,smallint,smallmoney,"
                     "sql_variant,sysname,text,timestamp,tinyint,varbinary,varchar,"
                     "uniqueidentifier"},
    {"sql:encode", "default,url"},
    {"sql:identity", "ignore,useValue"},
    {"sql:guid", "generate,useValue"},
    {"xdb:SQLType", "BFILE,BLOB,CHAR,CLOB,DATE,DECIMAL,FLOAT,INTEGER,INTERVAL DAY TO SECOND,"
                    "INTERVAL YEAR TO MONTH,NCHAR,NCLOB,NUMBER,NVARCHAR,NVARCHAR2,RAW,REF,"
                    "TIMESTAMP,VARCHAR,VARCHAR2,XMLTYPE"},
    {"xdb:JavaType", "BigDecimal,boolean,byte,byteArray,CharStream,double,Enum,float,int,long,"
                     "QName,Reference,short,Stream,String,TimeStamp,XMLType"},
    // A list without an entry.
    {"substitutionGroup model", ""},
};

const Row* RowOf(const QString& attribute) {
    for (const Row& row : kValues) {
        if (QString::fromLatin1(row.attributes).split(u' ').contains(attribute))
            return &row;
    }
    return nullptr;
}

QStringList AllPrefixed(DocumentWindow& window, QStringList names) {
    for (QString& name : names)
        name = Prefixed(window, name);
    return names;
}

} // namespace

QStringList GetSpecialListByAttribute(const QString& attribute) {
    const Row* row = RowOf(attribute);
    return row ? QString::fromLatin1(row->values).split(u',', Qt::SkipEmptyParts) : QStringList();
}

bool IsSpecialAttribute(const QString& attribute) {
    return RowOf(attribute) != nullptr;
}

std::optional<QStringList> ValuesOffered(DocumentWindow& window, const QString& attribute) {
    if (!IsSpecialAttribute(attribute))
        return {};
    return AllPrefixed(window, GetSpecialListByAttribute(attribute));
}

bool IsSpecialNodeByName(const QString& name) {
    const QString local = LocalName(name);
    return local == QStringLiteral("sequence") || local == QStringLiteral("all") ||
           local == QStringLiteral("choice");
}

// With the prefix as it is now (quirk 96).
QStringList NamesOffered(DocumentWindow& window, const QString& elementName) {
    if (!IsSpecialNodeByName(elementName))
        return {};
    return AllPrefixed(window, {QStringLiteral("sequence"), QStringLiteral("all"), QStringLiteral("choice")});
}

} // namespace schema
