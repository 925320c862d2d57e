set(folder_sources
  date_names.cpp)
set(folder_headers
  kydatime.h
  kydatime_arithmetic.h
  kydatimeN.h
  kydatimeN_arithmetic.h)
