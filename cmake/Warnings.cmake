# Warnings for our own targets; link with PRIVATE so that hosts never inherit them.
add_library(aa_warnings INTERFACE)
target_compile_options(aa_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow
  $<$<COMPILE_LANGUAGE:CXX>:-Wold-style-cast>
  $<$<COMPILE_LANGUAGE:CXX>:-Woverloaded-virtual>
  $<$<BOOL:${AUDIOANALYZER_WARNINGS_AS_ERRORS}>:-Werror>)
target_compile_definitions(aa_warnings INTERFACE
  QT_NO_CAST_FROM_ASCII
  QT_NO_KEYWORDS
  QT_NO_FOREACH
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  QT_DEPRECATED_WARNINGS
  QT_DISABLE_DEPRECATED_BEFORE=0x050F00)
