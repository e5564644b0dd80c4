# What the desktop knows of the player: the id that names its desktop entry,
# its AppStream file and its place on the session bus, and the audio and
# video types it opens (five audio types by its own engine, the rest by the
# media service). The desktop entry offers the player for these types, and
# the player names them to the desktop's media controls.
set(YARVO_APP_ID org.yarvo.Player)
set(YARVO_MIME_TYPES
  audio/mpeg audio/mp2 audio/x-wav audio/ogg audio/x-vorbis+ogg audio/x-opus+ogg audio/flac
  audio/mp4 audio/x-ms-wma audio/midi audio/ac3 audio/basic
  video/mpeg video/x-msvideo video/quicktime video/x-ms-wmv video/x-ms-asf video/x-ogm+ogg
  video/mp4 video/x-flv video/3gpp video/webm video/x-matroska)
