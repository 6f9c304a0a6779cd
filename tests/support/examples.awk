# Writes each C++ example of a page to a file of its own, 01.inc and so on, in the folder `to`.
/^```cpp/ { file = sprintf("%s/%02d.inc", to, ++count); printf "#line %d \"%s\"\n", NR + 1, FILENAME > file; next }
/^```/ { file = "" }
file { print > file }
