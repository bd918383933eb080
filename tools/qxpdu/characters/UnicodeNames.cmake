# Makes the rows of the table of names: cmake -DUNICODE_DATA=… -DOUTPUT=… -P UnicodeNames.cmake
cmake_minimum_required(VERSION 3.25)

file(READ ${UNICODE_DATA} rows)
# A range stands in two lines, one for each end.
string(REGEX REPLACE "([0-9A-F]+);<([^,;\n]+), First>[^\n]*\n([0-9A-F]+);[^\n]*\n" "{0x\\1, 0x\\3, \"\\2\"},\n" rows
  "${rows}")
# A control character has its name in the field of old names, and some have none.
string(REGEX REPLACE "([0-9A-F]+);<control>;Cc;[^\n;]*;[^\n;]*;[^\n;]*;[^\n;]*;[^\n;]*;[^\n;]*;[^\n;]*;([^\n;]*);[^\n]*\n"
  "{0x\\1, 0x\\1, \"\\2\"},\n" rows "${rows}")
string(REGEX REPLACE "([0-9A-F]+);([^;\n]+);[^\n]*\n" "{0x\\1, 0x\\1, \"\\2\"},\n" rows "${rows}")
file(WRITE ${OUTPUT} "${rows}")
