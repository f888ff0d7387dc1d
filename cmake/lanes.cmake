# The wide marches: each of these files is compiled for an instruction set that the processor at hand may lack, and run
# only where it has it. Elsewhere the files give back the form of one lane.
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|amd64)$" AND CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  set(four_lanes -mavx2)
  set(eight_lanes -mavx512f -mavx512dq -mavx512vl)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 warns of its own intrinsics, which begin with registers that hold nothing yet.
    list(APPEND eight_lanes -Wno-uninitialized -Wno-maybe-uninitialized)
  endif()
  set_source_files_properties(src/engine/wide_march_avx2.cpp PROPERTIES COMPILE_OPTIONS "${four_lanes}")
  set_source_files_properties(src/engine/wide_march_avx512.cpp PROPERTIES COMPILE_OPTIONS "${eight_lanes}")
endif()
