# The BSON library the records are written with (libmongoclient) as the imported target
# Basket::mongoclient. Shared by this tree and the installed package's configuration; it ships no
# CMake package of its own. Its headers sit in the system include directories.
if(NOT TARGET Basket::mongoclient)
    find_library(BASKET_MONGOCLIENT_LIBRARY mongoclient)
    find_path(BASKET_MONGOCLIENT_INCLUDE_DIR mongo/bson/bson.h)
    if(BASKET_MONGOCLIENT_LIBRARY AND BASKET_MONGOCLIENT_INCLUDE_DIR)
        add_library(Basket::mongoclient UNKNOWN IMPORTED)
        set_target_properties(Basket::mongoclient PROPERTIES IMPORTED_LOCATION "${BASKET_MONGOCLIENT_LIBRARY}")
    endif()
endif()
