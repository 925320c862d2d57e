set(folder_sources
  kytypfmt.cpp)
set(folder_headers
  kytypfmt.h)
