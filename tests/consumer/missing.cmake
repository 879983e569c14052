# An installation without the shared library says so to those who ask for it, and to those who ask for no such thing.

include(${CMAKE_CURRENT_LIST_DIR}/steps.cmake)

install_into(${WORK}/prefix)
file(GLOB shared_library ${WORK}/prefix/${LIBDIR}/libtavelin.so*)
file(REMOVE ${shared_library})
expect_refusal("There is no tavelin::shared\\. tavelin::shared: [^ ]*/libtavelin\\.so is not installed"
    -D CMAKE_PREFIX_PATH=${WORK}/prefix -D TAVELIN_KIND=shared)
expect_refusal("There is no tavelin::dynamic\\." -D CMAKE_PREFIX_PATH=${WORK}/prefix -D TAVELIN_KIND=dynamic)

# BUILD_SHARED_LIBS takes what there is.
configure_consumer(-D CMAKE_PREFIX_PATH=${WORK}/prefix -D BUILD_SHARED_LIBS=ON)
