# What the core stands on. Everything is Debian's, but for ONNX Runtime on Debian 12, which
# tools/setup/onnxruntime.sh unpacks into build/deps.
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
find_package(ICU 70 REQUIRED COMPONENTS uc i18n)
find_package(nlohmann_json 3.11 REQUIRED)
find_package(OpenSSL REQUIRED)
pkg_check_modules(EXIV2 REQUIRED IMPORTED_TARGET exiv2)
pkg_check_modules(FFMPEG REQUIRED IMPORTED_TARGET libavformat>=59 libavcodec libswscale libavutil)
pkg_check_modules(GIO REQUIRED IMPORTED_TARGET gio-2.0)
pkg_check_modules(LCMS REQUIRED IMPORTED_TARGET lcms2)
pkg_check_modules(RAW REQUIRED IMPORTED_TARGET libraw_r)
pkg_check_modules(TIFF REQUIRED IMPORTED_TARGET libtiff-4)
pkg_check_modules(VIPS REQUIRED IMPORTED_TARGET vips>=8.14)

set(ORNIVO_ONNXRUNTIME_ROOT ${PROJECT_SOURCE_DIR}/build/deps/onnxruntime CACHE PATH
  "Where ONNX Runtime stands if the system has none")
find_path(ONNXRUNTIME_INCLUDE_DIR onnxruntime_c_api.h
  PATHS ${ORNIVO_ONNXRUNTIME_ROOT}/include
  PATH_SUFFIXES onnxruntime onnxruntime/core/session)
find_library(ONNXRUNTIME_LIBRARY onnxruntime PATHS ${ORNIVO_ONNXRUNTIME_ROOT}/lib)
if(NOT ONNXRUNTIME_INCLUDE_DIR OR NOT ONNXRUNTIME_LIBRARY)
  message(FATAL_ERROR "ONNX Runtime is missing: tools/setup/install.sh brings it.")
endif()
add_library(onnxruntime SHARED IMPORTED)
set_target_properties(onnxruntime PROPERTIES
  IMPORTED_LOCATION ${ONNXRUNTIME_LIBRARY}
  INTERFACE_INCLUDE_DIRECTORIES ${ONNXRUNTIME_INCLUDE_DIR})
