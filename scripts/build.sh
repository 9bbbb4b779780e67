# Brings a preset's build folder up to date and builds the targets named, or everything. Sourced from the
# repository's root. build PRESET [TARGET…]
# shellcheck shell=bash
build() {
    local preset=$1 options=()
    shift
    if command -v ccache >/dev/null; then
        options+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_OBJCXX_COMPILER_LAUNCHER=ccache)
    fi
    if [[ $(uname -s) == Darwin ]]; then
        options+=(-DCMAKE_PREFIX_PATH="$(brew --prefix qt)")
    fi
    cmake --preset "$preset" "${options[@]}"
    if [[ $# -gt 0 ]]; then
        cmake --build "build/$preset" --target "$@"
    else
        cmake --build "build/$preset"
    fi
}
