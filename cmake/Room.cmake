# quillmarsh_room(name SOURCES ... LINKS ...): one room, a static library whose headers are
# included by room ("history/ClipStore.h"). Links are public: a room shows what it stands on.
function(quillmarsh_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
  add_library(${name} STATIC ${ROOM_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC quillmarsh_flags ${ROOM_LINKS} PRIVATE ${ROOM_PRIVATE_LINKS})
  if(QUILLMARSH_HEADER_CHECK)
    quillmarsh_check_headers(${name} ${ROOM_SOURCES})
  endif()
endfunction()

# Compiles each header of the room by itself, so that none leans on what its includer included.
function(quillmarsh_check_headers name)
  set(checks)
  foreach(source IN LISTS ARGN)
    if(source MATCHES "\\.h$")
      string(MAKE_C_IDENTIFIER "${source}" id)
      set(check ${CMAKE_CURRENT_BINARY_DIR}/header_check/${id}.cpp)
      file(CONFIGURE OUTPUT ${check} CONTENT "#include \"${CMAKE_CURRENT_SOURCE_DIR}/${source}\"\n" @ONLY)
      list(APPEND checks ${check})
    endif()
  endforeach()
  if(checks)
    add_library(${name}_headers OBJECT ${checks})
    set_target_properties(${name}_headers PROPERTIES AUTOMOC OFF)
    target_link_libraries(${name}_headers PRIVATE ${name})
  endif()
endfunction()

# quillmarsh_wayland_protocol(name xml...): a static library of what wayland-scanner makes of
# protocols; "text-input-v3.xml" is included as <text-input-v3-client-protocol.h>.
function(quillmarsh_wayland_protocol name)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/${name})
  file(MAKE_DIRECTORY ${folder})
  set(made)
  foreach(xml IN LISTS ARGN)
    cmake_path(GET xml STEM protocol)
    set(header ${folder}/${protocol}-client-protocol.h)
    set(code ${folder}/${protocol}-protocol.c)
    add_custom_command(OUTPUT ${header} ${code} DEPENDS ${xml} VERBATIM
      COMMAND ${WAYLAND_SCANNER} client-header ${xml} ${header}
      COMMAND ${WAYLAND_SCANNER} private-code ${xml} ${code})
    list(APPEND made ${header} ${code})
  endforeach()
  # Without this house's warnings, which are not for code that is made by others.
  add_library(${name} STATIC ${made})
  set_target_properties(${name} PROPERTIES AUTOMOC OFF)
  target_include_directories(${name} SYSTEM PUBLIC ${folder})
  target_link_libraries(${name} PUBLIC PkgConfig::wayland)
endfunction()

# quillmarsh_test(name SOURCES ... LINKS ...): a GoogleTest program run without a display. The
# support library brings main(), which makes the application object and turns an unexpected
# warning into a failure.
function(quillmarsh_test name)
  cmake_parse_arguments(TEST "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${TEST_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE TEST_DATA_DIR="${PROJECT_SOURCE_DIR}/tests/data")
  target_link_libraries(${name} PRIVATE quillmarsh_flags test_support ${TEST_LINKS})
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
    PROPERTIES TIMEOUT 60 LABELS unit)
endfunction()

# The same for what needs a display: each run gets a private X server, window manager, session bus
# and home of its own.
function(quillmarsh_desktop_test name)
  cmake_parse_arguments(TEST "" "" "SOURCES;LINKS;WITH" ${ARGN})
  add_executable(${name} ${TEST_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE TEST_DATA_DIR="${PROJECT_SOURCE_DIR}/tests/data")
  target_link_libraries(${name} PRIVATE quillmarsh_flags test_support ${TEST_LINKS})
  quillmarsh_desktop_run(${name} NAME ${name} WITH ${TEST_WITH})
endfunction()

# quillmarsh_desktop_run(program WITH ...): a further run of such a program on another desktop.
function(quillmarsh_desktop_run program)
  cmake_parse_arguments(RUN "" "NAME" "WITH" ${ARGN})
  if(NOT RUN_NAME)
    string(MAKE_C_IDENTIFIER "${program}${RUN_WITH}" RUN_NAME)
  endif()
  add_test(NAME ${RUN_NAME} COMMAND /usr/bin/python3 ${PROJECT_SOURCE_DIR}/tests/support/desktop.py
    ${RUN_WITH} -- env QT_QPA_PLATFORM=xcb $<TARGET_FILE:${program}>)
  set_tests_properties(${RUN_NAME} PROPERTIES TIMEOUT 180 LABELS desktop)
  if(QUILLMARSH_TSAN)
    # Tests start programs while threads run, which the sanitizer refuses unless told otherwise.
    set_tests_properties(${RUN_NAME} PROPERTIES ENVIRONMENT
      "TSAN_OPTIONS=die_after_fork=0 suppressions=${PROJECT_SOURCE_DIR}/tests/support/tsan.supp")
  endif()
endfunction()

# quillmarsh_session_test(name SOURCES ... LINKS ... SESSIONS sway kde): the same in Wayland sessions,
# a test called name_SESSION for each; SESSION_INPUT is the program that presses keys there.
function(quillmarsh_session_test name)
  cmake_parse_arguments(TEST "" "" "SOURCES;LINKS;SESSIONS" ${ARGN})
  add_executable(${name} ${TEST_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE TEST_DATA_DIR="${PROJECT_SOURCE_DIR}/tests/data")
  target_link_libraries(${name} PRIVATE quillmarsh_flags test_support ${TEST_LINKS})
  foreach(session IN LISTS TEST_SESSIONS)
    add_test(NAME ${name}_${session} COMMAND /usr/bin/python3 -B
      ${PROJECT_SOURCE_DIR}/tests/support/session.py ${session}
      -- env QT_QPA_PLATFORM=wayland $<TARGET_FILE:${name}>)
    set(environment SESSION_INPUT=$<TARGET_FILE:session_input>)
    if(QUILLMARSH_TSAN)
      list(APPEND environment
        "TSAN_OPTIONS=die_after_fork=0 suppressions=${PROJECT_SOURCE_DIR}/tests/support/tsan.supp")
    endif()
    set_tests_properties(${name}_${session} PROPERTIES TIMEOUT 180 LABELS desktop
      ENVIRONMENT "${environment}")
  endforeach()
endfunction()

# quillmarsh_translate(program): gives a program the catalogues of every language.
function(quillmarsh_translate program)
  set(catalogues)
  foreach(language ar de en es fr ja)
    list(APPEND catalogues ${PROJECT_SOURCE_DIR}/data/translations/quillmarsh_${language}.ts)
  endforeach()
  # Each program compiles its own: a file has one rule, and these lie in different folders.
  set_source_files_properties(${catalogues} PROPERTIES
    OUTPUT_LOCATION ${CMAKE_CURRENT_BINARY_DIR}/${program}_catalogues)
  qt_add_lrelease(${program} TS_FILES ${catalogues} QM_FILES_OUTPUT_VARIABLE compiled
    OPTIONS -silent)
  qt_add_resources(${program} ${program}_translations PREFIX /translations
    BASE ${CMAKE_CURRENT_BINARY_DIR}/${program}_catalogues FILES ${compiled})
endfunction()
