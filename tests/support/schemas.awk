# Writes the first schema of a page to order.xsd, and the others as one to tutorial.xsd, in the folder `to`.
/^```xml/ {
    file = to (++count == 1 ? "/order.xsd" : "/tutorial.xsd")
    if (count == 2) {
        print "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\" xmlns=\"urn:tutorial\"" > file
        print "           targetNamespace=\"urn:tutorial\" elementFormDefault=\"qualified\">" > file
    }
    next
}
/^```/ { file = "" }
file { print > file }
END { print "</xs:schema>" > (to "/tutorial.xsd") }
