set(folder_sources)
set(folder_headers
  kydatime.h
  kydatime_arithmetic.h
  kydatimeN.h
  kydatimeN_arithmetic.h)
