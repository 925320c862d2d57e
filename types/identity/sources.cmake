set(folder_sources
  kyseal.cpp
  kyseal_rows.cpp
  kyseal_slots.cpp
  kytypfmt.cpp)
set(folder_headers
  kyseal.h
  kytypfmt.h)
