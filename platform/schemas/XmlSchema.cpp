// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/schemas/XmlSchema.h"

namespace schemas {

const char* XmlNamespaceSchema() {
    return R"(<?xml version="1.0"?>
<xs:schema targetNamespace="http://www.w3.org/XML/1998/namespace" xmlns:xs="http://www.w3.org/2001/XMLSchema">
  <xs:attribute name="lang">
    <xs:simpleType>
      <xs:union memberTypes="xs:language">
        <xs:simpleType><xs:restriction base="xs:string"><xs:enumeration value=""/></xs:restriction></xs:simpleType>
      </xs:union>
    </xs:simpleType>
  </xs:attribute>
  <xs:attribute name="space">
    <xs:simpleType>
      <xs:restriction base="xs:NCName">
        <xs:enumeration value="default"/><xs:enumeration value="preserve"/>
      </xs:restriction>
    </xs:simpleType>
  </xs:attribute>
  <xs:attribute name="base" type="xs:anyURI"/>
  <xs:attribute name="id" type="xs:ID"/>
  <xs:attributeGroup name="specialAttrs">
    <xs:attribute ref="xml:base"/><xs:attribute ref="xml:lang"/>
    <xs:attribute ref="xml:space"/><xs:attribute ref="xml:id"/>
  </xs:attributeGroup>
</xs:schema>
)";
}

} // namespace schemas
