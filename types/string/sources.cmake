set(folder_sources
  kystring.cpp
  kystring_append.cpp
  kystring_build.cpp
  kystring_defaults.cpp
  kystring_number_text.cpp
  kystring_rows.cpp)
# Characters, collation, mapping.
list(APPEND folder_sources
  code_mapping.cpp
  kychar.cpp
  kychar_in_string.cpp
  kywstring.cpp)
set(folder_headers
  kychar.h
  kystrcmp.h
  kystring.h
  kywstring.h)
