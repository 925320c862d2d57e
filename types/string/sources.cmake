set(folder_sources)
set(folder_headers
  kychar.h
  kystrcmp.h
  kystring.h
  kywstring.h)
