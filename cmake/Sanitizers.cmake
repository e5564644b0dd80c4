# AddressSanitizer and UndefinedBehaviorSanitizer for every project target;
# in a fuzzing build the libraries also get libFuzzer's coverage hooks.
add_library(yarvo_sanitizers INTERFACE)
if(YARVO_SANITIZE OR YARVO_FUZZ)
  target_compile_options(yarvo_sanitizers INTERFACE
    -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  target_link_options(yarvo_sanitizers INTERFACE -fsanitize=address,undefined)
endif()
if(YARVO_FUZZ)
  target_compile_options(yarvo_sanitizers INTERFACE -fsanitize=fuzzer-no-link)
endif()

# Every project target gets the language level, warnings and sanitizers from here.
function(yarvo_target target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_link_libraries(${target} PRIVATE yarvo_warnings yarvo_sanitizers)
endfunction()
