# Sanitizers change every object that is linked together, so they are set for the whole build.
if(AUDIOANALYZER_SANITIZERS)
  add_compile_options(
    -fsanitize=${AUDIOANALYZER_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${AUDIOANALYZER_SANITIZERS})
endif()
