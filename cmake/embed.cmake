# embed_files(TARGET FILES...): bears text files inside the target, found by host::Embedded under their path below data/.
# embed_text(TARGET FILE SYMBOL): bears one text file beside the list as `extern const char SYMBOL[]` of namespace ado.
# Run with -P it writes the source: cmake -D OUT=... -D ROOT=... -D "FILES=a;b" [-D SYMBOL=...] -P embed.cmake
if(CMAKE_SCRIPT_MODE_FILE)
  set(arrays "")
  set(table "")
  set(number 0)
  foreach(file IN LISTS FILES)
    file(READ ${ROOT}/${file} bytes HEX)
    string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
    string(REGEX REPLACE "(................................................................................)" "\\1\n" bytes "${bytes}")
    string(APPEND arrays "constexpr unsigned char file${number}[] = {${bytes}0x00};\n")
    string(APPEND table "    {\"${file}\", file${number}, sizeof file${number} - 1},\n")
    math(EXPR number "${number} + 1")
  endforeach()
  if(SYMBOL)
    file(WRITE ${OUT} "namespace ado {\nextern const char ${SYMBOL}[];\nconst char ${SYMBOL}[] = {${bytes}0x00};\n}  // namespace ado\n")
    return()
  endif()
  file(WRITE ${OUT} "#include \"host/make/EmbeddedTable.h\"\n\nnamespace host {\nnamespace {\n${arrays}}  // namespace\n
const EmbeddedFile EmbeddedFiles[] = {\n${table}};\nconst std::size_t EmbeddedCount = ${number};\n}  // namespace host\n")
  return()
endif()

set(QM_EMBED_SCRIPT ${CMAKE_CURRENT_LIST_FILE})

function(embed_files target)
  set(out ${CMAKE_CURRENT_BINARY_DIR}/${target}_embedded.cpp)
  set(files ${ARGN})
  list(TRANSFORM files PREPEND ${CMAKE_SOURCE_DIR}/data/ OUTPUT_VARIABLE paths)
  add_custom_command(
    OUTPUT ${out}
    COMMAND ${CMAKE_COMMAND} -D OUT=${out} -D ROOT=${CMAKE_SOURCE_DIR}/data -D "FILES=${files}" -P ${QM_EMBED_SCRIPT}
    DEPENDS ${paths} ${QM_EMBED_SCRIPT}
    VERBATIM)
  target_sources(${target} PRIVATE ${out})
endfunction()

function(embed_text target file symbol)
  set(out ${CMAKE_CURRENT_BINARY_DIR}/${symbol}.cpp)
  add_custom_command(
    OUTPUT ${out}
    COMMAND ${CMAKE_COMMAND} -D OUT=${out} -D ROOT=${CMAKE_CURRENT_SOURCE_DIR} -D FILES=${file} -D SYMBOL=${symbol}
            -P ${QM_EMBED_SCRIPT}
    DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${file} ${QM_EMBED_SCRIPT}
    VERBATIM)
  target_sources(${target} PRIVATE ${out})
endfunction()
