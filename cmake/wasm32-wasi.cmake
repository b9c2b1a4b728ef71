# clang 19 for WebAssembly, with the distribution's libc++ and C library.
set(CMAKE_SYSTEM_NAME Generic)
set(CMAKE_SYSTEM_PROCESSOR wasm32)

set(CMAKE_CXX_COMPILER clang++-19)
set(CMAKE_CXX_COMPILER_TARGET wasm32-wasi)
set(CMAKE_AR llvm-ar-19)
set(CMAKE_RANLIB llvm-ranlib-19)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

# What every engine of today has, and node 18. No tail calls: node 18 and older browsers refuse a module with
# them. So a coroutine must not resume another from await_suspend by returning its handle: each step of a
# loop would leave a frame on the stack.
set(CMAKE_CXX_FLAGS_INIT
  "-stdlib=libc++ -fno-exceptions -flto -ffunction-sections -fdata-sections -mbulk-memory -mnontrapping-fptoint -msign-ext")
