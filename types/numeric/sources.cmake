set(folder_sources)
set(folder_headers)
