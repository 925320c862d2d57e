set(folder_sources
  increment_pointer.cpp)
set(folder_headers
  kytypes.h
  kytypinf.h
  kytypmgr.h)
