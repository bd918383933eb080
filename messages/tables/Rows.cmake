# Makes initialisers of a table's rows, each cell a string: cmake -DTABLE=… -DOUTPUT=… -P Rows.cmake
cmake_minimum_required(VERSION 3.25)

file(READ ${TABLE} rows)
# Comments and the names of the columns.
string(REGEX MATCH "^(#[^\n]*\n)*[^\n]*\n" head "${rows}")
string(LENGTH "${head}" length)
string(SUBSTRING "${rows}" ${length} -1 rows)
string(REPLACE "\t" "\", \"" rows "${rows}")
string(REGEX REPLACE "([^\n]+)\n" "{\"\\1\"},\n" rows "${rows}")
file(WRITE ${OUTPUT} "${rows}")
