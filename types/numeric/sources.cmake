set(folder_sources
  number_text_digits.cpp
  number_text_double.cpp
  number_text_scan_double.cpp)
set(folder_headers)
