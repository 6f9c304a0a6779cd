#!/usr/bin/env bash
# facet-suite.sh FOLDER: makes a suite of schemas and documents for scripts/xsd-suite.sh, of each built-in type of XML
# Schema under each facet that it may have: restrictions, lists, unions, with values inside, at and beyond each edge.
#
# The verdict on each document follows from the table below. Where xmllint is installed, its verdicts are compared, and
# those that differ are printed: it is not right about all of them.

source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
(($# == 1)) || { echo "Usage: scripts/facet-suite.sh FOLDER" >&2; exit 2; }
suite=$1
rm -rf "$suite"
mkdir -p "$suite"

# Columns with "!" between, values with "|":
#   type ! kind ! four values ! other spellings of the third ! no literals of the type
# Kinds: o for values in ascending order, u for units of length 1 to 4, n for neither, b for no enumeration either
types() {
    cat <<'END'
string!u!a|bc|d€f|g𝄞hi!!
normalizedString!u!a|bc|d€f|g hi!!
token!u!a|bc|d€f|g hi! d€f !
anyURI!u!a|b/|#𝄞c|u:dd! #𝄞c !
language!n!de|en-GB|fr-CA|x-a-b! fr-CA !1e|de-|de_CH|abcdefghi
NMTOKEN!u!-|1.|é:b|g·h2! é:b !a,b|a b|
Name!u!a|:b|é:b|_h2·! é:b !1a|-a|a b|
NCName!u!a|_b|éab|_h2·! éab !a:b|1a|
ID!u!a|_b|éab|_h2·! éab !a:b|1a|
IDREF!u!a|_b|éab|_h2·! éab !a:b|1a|
ENTITY!u!a|_b|éab|_h2·! éab !a:b|1a|
QName!n!a|b|c1|d! c1 !1a|a:|:a|
NOTATION!n!a|b|c1|d! c1 !zz
boolean!b!true|false|1|0! 1 !TRUE|2|yes|
decimal!o!-1.5|0|3.25|99999999999999999999.5!3.250|+03.25| 3.25 !1e3|.|1,5|INF|
integer!o!-99999999999999999999|0|7|99999999999999999999!+7|007| 7 !7.0|.|1e3|
nonPositiveInteger!o!-99999999999999999999|-8|-7|0!-007!1|+1
negativeInteger!o!-99999999999999999999|-8|-7|-1!-007!0|-0
nonNegativeInteger!o!0|6|7|99999999999999999999!+7|007!-1
positiveInteger!o!1|6|7|99999999999999999999!+7|007!0|-0
long!o!-9223372036854775808|0|7|9223372036854775807!+7|007!9223372036854775808|-9223372036854775809|1.0
int!o!-2147483648|0|7|2147483647!+7|007!2147483648|-2147483649
short!o!-32768|0|7|32767!+7|007!32768|-32769
byte!o!-128|0|7|127!+7|007!128|-129
unsignedLong!o!0|6|7|18446744073709551615!+7|007!18446744073709551616|-1
unsignedInt!o!0|6|7|4294967295!+7|007!4294967296|-1
unsignedShort!o!0|6|7|65535!+7|007!65536|-1
unsignedByte!o!0|6|7|255!+7|007!256|-1
float!o!-INF|-1.5|3.25|INF!3.25e0|+325E-2|03.250!inf|+INF|1e|0x1|
double!o!-INF|-1e-300|1e300|INF!1.0E300|10e+299|0.1e301!inf|+INF|1e|nan|
duration!o!-P1Y|PT0S|P1Y2M|P1000000000Y!P14M|P0Y14M|P1Y2M0DT0H!P|PT|P1Y2|P1M1Y|PT1.5M|P-1Y|1Y
dateTime!o!-0044-03-15T00:00:00Z|2024-02-28T24:00:00Z|2024-02-29T12:00:00.1234567891Z|12345-01-01T00:00:00Z!2024-02-29T14:00:00.12345678910+02:00|2024-02-29T11:30:00.1234567891-00:30!2023-02-29T00:00:00Z|2024-02-29T24:00:01Z|2024-02-29T00:00:00+14:01|2024-02-29|0000-01-01T00:00:00Z|02024-01-01T00:00:00Z|2024-2-9T00:00:00Z|2024-01-01T00:00Z
date!o!-0044-03-15Z|2024-02-28Z|2024-02-29Z|12345-01-01Z!2024-02-29+00:00!2023-02-29|2024-13-01|2024-02-29T00:00:00|24-02-29
time!o!00:00:00Z|11:59:59.999999999999Z|12:00:00Z|23:59:59Z!12:00:00.000Z|14:00:00+02:00|11:30:00-00:30!24:00:01|12:60:00|12:00|12:00:00.|1:00:00
gYearMonth!o!-0044-03Z|2024-01Z|2024-02Z|12345-01Z!2024-02+00:00!2024-13|2024|2024-2
gYear!o!-0044Z|2023Z|2024Z|12345Z!2024+00:00!24|0000|2024-01|02024
gMonthDay!o!--01-01Z|--02-28Z|--02-29Z|--12-31Z!--02-29+00:00!--02-30|--13-01|02-29|--2-9
gDay!o!---01Z|---02Z|---03Z|---31Z!---03+00:00!---32|---00|--03|---3
gMonth!o!--01Z|--02Z|--03Z|--12Z!--03+00:00!--13|--00|---03|--3
hexBinary!u!0A|0A0B|0C0D0E|01020304! 0C0D0E !0|0G|0A 0B
base64Binary!u!AA==|AAE=|AAEC|AAECAw==! AAEC !A|AB==|AAB=|A=AA|A?==
END
}

# Rows that no table of edges gives: type ! facets, with "&&" between ! good ones ! bad ones
extras() {
    cat <<'END'
decimal!totalDigits=3!123|-123|1.23|0.12|00123|1.2300|0!1234|0.123456|12.34
decimal!fractionDigits=2!1|1.2|1.23|1.23000!1.234|0.001
decimal!totalDigits=3 && fractionDigits=1!12.3|123!1.23|1234
decimal!pattern=\d{2}\.\d{3}!12.500|00.000!12.5|1.500
integer!totalDigits=3!999|-999|000999!1000
integer!pattern=0\d+!007|00!7
integer!minInclusive=-5 && maxInclusive=5!-5|5|+5!-6|6
integer!minExclusive=-5 && maxExclusive=5!-4|4!-5|5
nonNegativeInteger!maxInclusive=18446744073709551615!0|18446744073709551615!18446744073709551616|-1
long!totalDigits=2!99|-99!100
unsignedByte!pattern=\d{3}!007|255!7|256
float!pattern=\d\.\d{4}E\d!1.5000E3!1500|1.5E3
double!minInclusive=-1 && maxInclusive=1!-1|0|1|-0!NaN|1.0000000000000002|-INF
double!enumeration=NaN && enumeration=INF!NaN|INF!-INF|0
boolean!pattern=0|1!0|1!true|false
dateTime!minInclusive=2024-01-02T00:00:00Z!2024-01-02T00:00:00Z|2024-01-02T14:00:01|2024-01-02T01:00:00+01:00!2024-01-01T23:59:59Z|2024-01-02T00:00:00|2024-01-01T10:00:00|2024-01-02T00:59:59+01:00
dateTime!maxExclusive=2024-01-02T00:00:00!2024-01-01T23:59:59|2024-01-01T09:59:59Z!2024-01-02T00:00:00|2024-01-02T00:00:00Z
dateTime!pattern=.*\.\d{3}Z!2024-01-02T00:00:00.500Z|2024-01-02T00:00:00.000Z!2024-01-02T00:00:00.5Z
duration!minInclusive=P1M!P1M|P32D|P1Y!P31D|P28D|P27D
duration!maxExclusive=P1M!P27D|-P1Y!P1M|P28D|P31D|P32D
duration!enumeration=P1M!P1M|P0Y1M!P30D
duration!pattern=PT\d+M!PT90M|PT0M!PT1H30M
hexBinary!pattern=[0-9a-f]*!0a0b!0A0B
hexBinary!enumeration=0aFF!0AFF!0AFE|0aFFFF
string!pattern=[\i-[:]][\c-[:]]*!a|é1|_-·|𐀀!:a|1a|-a
string!pattern=\p{IsGreek}+!αβ|Ω!a|αb
string!pattern=\P{IsBasicLatin}*!é|!e|éa
string!pattern=[\p{L}-[\p{Lu}]]{2}!ab|éa!Ab|a1
string!pattern=[^-z]|[+\-]|a-!a-|+|-|b!z|ab
string!pattern=\w\W\d\D\s\S!a-1b c|é.٣x y!ab1b c|a-xb c
string!pattern=[0-9]{3}|[A-Z]{2}!123|AB!12|ABC|123AB
string!pattern=a && pattern=b+!a|bbb!ab|
string!pattern=$\^.\.\\!$^x.\!^x.\|$^x,\
string!length=2!𝄞a|  !𝄞|abc
token!enumeration=a b && enumeration=c!a b| a  b |c!ab|a
anyURI!length=1!𝄞|é!ab|
normalizedString!whiteSpace=collapse && maxLength=3!  a b  |abc!abcd
END
}

awk -F '!' -v suite="$suite" '
    function xml(text) { gsub(/&/, "\\&amp;", text); gsub(/</, "\\&lt;", text); gsub(/"/, "\\&quot;", text); return text }
    function exact(text) { gsub(/[.\\?*+{}()|^\[\]-]/, "\\\\&", text); return text }
    function facet(name, value) { return "<xs:" name " value=\"" xml(value) "\"/>" }
    function restricted(base, facets) { return "<xs:simpleType><xs:restriction base=\"" base "\">" facets "</xs:restriction></xs:simpleType>" }
    # An element of the type; then its documents.
    function element(type, good, bad,   i, count, parts) {
        ++elements
        declarations = declarations "<xs:element name=\"e" elements "\">" type "</xs:element>\n"
        count = split(good, parts, "|")
        for (i = 1; i <= count; ++i) document(parts[i], "valid")
        count = split(bad, parts, "|")
        for (i = 1; i <= count; ++i) document(parts[i], "invalid")
    }
    function document(value, verdict,   file) {
        file = group "/e" elements "-" ++documents "-" verdict ".xml"
        printf "<r><e%d>%s</e%d></r>\n", elements, xml(value), elements >(suite "/" file)
        close(suite "/" file)
        list[verdict] = list[verdict] (list[verdict] == "" ? "" : " ") file
    }
    function start(name) {
        group = name; elements = 0; documents = 0; declarations = ""; list["valid"] = ""; list["invalid"] = ""
        system("mkdir -p \"" suite "/" group "\"")
    }
    function finish(   file) {
        file = group "/schema.xsd"
        printf "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\">\n" >(suite "/" file)
        if (group == "NOTATION")
            printf "<xs:notation name=\"a\" public=\"a\"/><xs:notation name=\"b\" public=\"b\"/><xs:notation name=\"c1\" public=\"c\"/><xs:notation name=\"d\" public=\"d\"/>\n" >(suite "/" file)
        printf "<xs:element name=\"r\"><xs:complexType><xs:choice>\n%s</xs:choice></xs:complexType></xs:element>\n</xs:schema>\n", declarations >(suite "/" file)
        close(suite "/" file)
        print group "\t" file "\t" list["valid"] "\t" list["invalid"] >(suite "/index.tsv")
    }
    BEGIN { print "group\tschemas\tvalid\tinvalid" >(suite "/index.tsv") }
    part == "types" {
        type = "xs:" $1; kind = $2; split($3, v, "|"); same = $4; wrong = $5
        all = v[1] "|" v[2] "|" v[3] "|" v[4]
        start($1)
        any = type
        if ($1 == "NOTATION") {
            four = facet("enumeration", v[1]) facet("enumeration", v[2]) facet("enumeration", v[3]) facet("enumeration", v[4])
            element(restricted(type, four), all, wrong)
        } else {
            element(restricted(type, ""), all (same == "" ? "" : "|" same), wrong)
            element("<xs:simpleType><xs:union memberTypes=\"" type "\">" restricted("xs:NMTOKEN", facet("enumeration", "none.")) "</xs:union></xs:simpleType>",
                all "|none." (same == "" ? "" : "|" same), "")
        }
        if (kind == "o") {
            element(restricted(type, facet("minInclusive", v[2])), v[2] "|" v[3] "|" v[4], v[1])
            element(restricted(type, facet("maxInclusive", v[3])), v[1] "|" v[2] "|" v[3] "|" same, v[4])
            element(restricted(type, facet("minExclusive", v[2])), v[3] "|" v[4], v[1] "|" v[2])
            element(restricted(type, facet("maxExclusive", v[3])), v[1] "|" v[2], v[3] "|" v[4] "|" same)
            element(restricted(type, facet("minInclusive", v[2]) facet("maxInclusive", v[3])), v[2] "|" v[3], v[1] "|" v[4])
        }
        if (kind == "u") {
            element(restricted(type, facet("length", 2)), v[2], v[1] "|" v[3] "|" v[4])
            element(restricted(type, facet("minLength", 3)), v[3] "|" v[4], v[1] "|" v[2])
            element(restricted(type, facet("maxLength", 2)), v[1] "|" v[2], v[3] "|" v[4])
        }
        if (kind != "b") {
            some = facet("enumeration", v[1]) facet("enumeration", v[3])
            element(restricted(type, some), v[1] "|" v[3] (same == "" ? "" : "|" same), v[2] "|" v[4])
        }
        if (kind != "b" && $1 != "NOTATION" && v[4] !~ / /) {
            inner = restricted(type, some)
            element("<xs:simpleType><xs:list>" inner "</xs:list></xs:simpleType>", v[1] " " v[3] "| " v[3] "\n" v[1] " " v[3] " |", v[1] " " v[2])
            base = "<xs:simpleType><xs:list itemType=\"" type "\"/></xs:simpleType>"
            element("<xs:simpleType><xs:restriction>" base facet("length", 2) "</xs:restriction></xs:simpleType>", v[1] " " v[2], v[1] "|" v[1] " " v[2] " " v[3])
            element("<xs:simpleType><xs:restriction>" base facet("enumeration", v[1] " " v[2]) facet("enumeration", v[3]) "</xs:restriction></xs:simpleType>",
                v[1] " " v[2] "|" v[3], v[1] "|" v[2] " " v[1])
            element("<xs:simpleType><xs:union><xs:simpleType><xs:list itemType=\"xs:boolean\"/></xs:simpleType>" inner "</xs:union></xs:simpleType>",
                v[1] "|" v[3] "|true 0|", v[2] " " v[4])
        }
        pattern = facet("pattern", exact(v[1])) facet("pattern", exact(v[3]))
        element(restricted(type, ($1 == "NOTATION" ? four : "") pattern), v[1] "|" v[3], v[2] "|" v[4])
        finish()
    }
    part == "extras" {
        count = split($2, given, / && /)
        facets = ""
        for (i = 1; i <= count; ++i) {
            cut = index(given[i], "=")
            facets = facets facet(substr(given[i], 1, cut - 1), substr(given[i], cut + 1))
        }
        start("extra-" FNR)
        element(restricted("xs:" $1, facets), $3, $4)
        finish()
    }' part=types <(types) part=extras <(extras)

total=$(find "$suite" -name '*.xml' | wc -l)
echo "$total documents of $(($(wc -l <"$suite/index.tsv") - 1)) schemas"
command -v xmllint >/dev/null || exit 0
for folder in "$suite"/*/; do
    { xmllint --noout --schema "${folder}schema.xsd" "$folder"*.xml 2>&1 || true; } |
        sed -nE 's#^.*/(([^/]*)-(valid|invalid)\.xml) (validates|fails to validate)$#\1 \3 \4#p' |
        awk -v folder="$folder" '($2 == "valid") != ($3 == "validates") { print "xmllint says otherwise of", folder $1 }'
done
