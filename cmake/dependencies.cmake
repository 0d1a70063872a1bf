# Everything comes from the distribution's packages; tools/install-deps names them.
find_package(PkgConfig REQUIRED)
pkg_check_modules(utf8proc REQUIRED IMPORTED_TARGET libutf8proc)
pkg_check_modules(sqlcipher REQUIRED IMPORTED_TARGET sqlcipher)
find_package(Threads REQUIRED)
if(QM_TESTS)
  find_package(GTest REQUIRED)
endif()
