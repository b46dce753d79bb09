# The icons live in the program itself, so that it never lacks them: assets/icons/NAME.svg is ":/icons/NAME.svg".
file(GLOB icons CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/assets/icons/*.svg")
qt_add_resources(room_qt icons PREFIX "/icons" BASE "${CMAKE_SOURCE_DIR}/assets/icons" FILES ${icons})
