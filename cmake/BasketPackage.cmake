# What `cmake --install` puts in place and CPack packs: the libraries, the headers of every layer
# (one folder each under include/BasketPanel), the CMake package BasketPanel, the demo host with
# its log4cxx configuration.
include(CMakePackageConfigHelpers)

set(_basket_installed_libraries basket_records basket_services basket_toolkit basket_platform basketpanel basket_fixroute)
install(TARGETS ${_basket_installed_libraries} basket_standins
    EXPORT BasketPanelTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    INCLUDES DESTINATION ${BASKET_INSTALL_INCLUDEDIR})

# The headers are those in each library's source list, so that a header added there is installed.
foreach(_target IN LISTS _basket_installed_libraries)
    get_target_property(_sources ${_target} SOURCES)
    get_target_property(_dir ${_target} SOURCE_DIR)
    get_target_property(_folder ${_target} EXPORT_NAME)
    list(FILTER _sources INCLUDE REGEX "\\.h$")
    list(TRANSFORM _sources PREPEND "${_dir}/")
    install(FILES ${_sources} DESTINATION ${BASKET_INSTALL_INCLUDEDIR}/${_folder})
endforeach()

install(EXPORT BasketPanelTargets NAMESPACE Basket:: DESTINATION ${BASKET_INSTALL_CMAKEDIR})
configure_package_config_file(cmake/BasketPanelConfig.cmake.in
    ${CMAKE_CURRENT_BINARY_DIR}/BasketPanelConfig.cmake
    INSTALL_DESTINATION ${BASKET_INSTALL_CMAKEDIR}
    PATH_VARS BASKET_INSTALL_DATADIR)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/BasketPanelConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES
    ${CMAKE_CURRENT_BINARY_DIR}/BasketPanelConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/BasketPanelConfigVersion.cmake
    cmake/BasketMongoClient.cmake
    DESTINATION ${BASKET_INSTALL_CMAKEDIR})
install(FILES app/basket-demo.log4cxx.properties DESTINATION ${BASKET_INSTALL_DATADIR})
install(FILES README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})

# cpack -G DEB: one package with the libraries, the headers, the CMake package and the demo.
# Runtime dependencies come from dpkg-shlibdeps; the development packages are named because the
# CMake package finds Qt 5, Boost, log4cxx and libmongoclient through their headers and files.
set(CPACK_PACKAGE_NAME basketpanel)
set(CPACK_PACKAGE_VENDOR "Basket panel team")
set(CPACK_PACKAGE_CONTACT "Basket panel team <basket-panel@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Basket operation panel: a dockable Qt 5 panel for sending baskets of orders")
set(CPACK_PACKAGE_DESCRIPTION "The basket operation panel as a shared library, the shared libraries standing in for the client's records, services, toolkit and shared widgets, their headers, the CMake package BasketPanel (Basket::panel, Basket::standins, Basket::fixroute), the demo host basket-demo with its log4cxx configuration and the simulated FIX exchange basket-simexchange.")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_GENERATOR DEB)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qtbase5-dev (>= ${BASKET_QT_MIN_VERSION}), libboost-dev, liblog4cxx-dev, libmongoclient-dev")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-wqy-microhei")
set(CPACK_STRIP_FILES ON)
include(CPack)
