# The libraries the panel reads and writes basket files with, as imported targets:
#   Basket::csv         libcsv (Debian libcsv-dev), RFC 4180 CSV; it ships no pkg-config file
#   Basket::zip         libzip (libzip-dev), the zip container of an .xlsx
#   Basket::xlsxwriter  libxlsxwriter (libxlsxwriter-dev), .xlsx export
# The panel links them privately: a host of the shared library needs their runtime packages only.
find_package(PkgConfig REQUIRED)
pkg_check_modules(BASKET_LIBZIP REQUIRED IMPORTED_TARGET libzip)
pkg_check_modules(BASKET_XLSXWRITER REQUIRED IMPORTED_TARGET xlsxwriter)

find_path(BASKET_CSV_INCLUDE_DIR csv.h)
find_library(BASKET_CSV_LIBRARY csv)
if(NOT BASKET_CSV_INCLUDE_DIR OR NOT BASKET_CSV_LIBRARY)
    message(FATAL_ERROR "libcsv (Debian package libcsv-dev) was not found")
endif()

if(NOT TARGET Basket::csv)
    add_library(Basket::csv UNKNOWN IMPORTED)
    set_target_properties(Basket::csv PROPERTIES
        IMPORTED_LOCATION ${BASKET_CSV_LIBRARY}
        INTERFACE_INCLUDE_DIRECTORIES ${BASKET_CSV_INCLUDE_DIR})
    add_library(Basket::zip ALIAS PkgConfig::BASKET_LIBZIP)
    add_library(Basket::xlsxwriter ALIAS PkgConfig::BASKET_XLSXWRITER)
endif()
