file(REMOVE_RECURSE
  "libplovixengine_static.a"
)
