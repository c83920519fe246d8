# Builds the parameter library against the installed platform. Unoptimised: that it builds is the
# question.
include("${CMAKE_CURRENT_LIST_DIR}/Build.cmake")
kr_build("${SOURCE}" "${WORK}/installedPlatform"
    -DKR_PLATFORM=installed -DKR_TESTS=OFF -DKR_APPS=OFF -DCMAKE_BUILD_TYPE=)
