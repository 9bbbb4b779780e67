# Brings a preset's build folder up to date. Sourced from the repository's root.
# shellcheck shell=bash

# Configures a preset unless that is done already; the build itself notices changes in CMake files. configure PRESET
configure() {
    local preset=$1 options=() ninja=build/$1/build.ninja stamp=build/$1/.configured wanted
    if command -v ccache >/dev/null; then
        options+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_OBJCXX_COMPILER_LAUNCHER=ccache)
    fi
    if [[ $(uname -s) == Darwin ]]; then
        # Homebrew does not link OpenSSL into the default search path.
        options+=(-DCMAKE_PREFIX_PATH="$(brew --prefix qt);$(brew --prefix openssl@3)")
    fi
    wanted="${options[*]} ${CXX:-} ${CXXFLAGS:-} ${LDFLAGS:-}"
    if [[ ! -f $ninja || CMakePresets.json -nt $ninja || $(cat "$stamp" 2>/dev/null) != "$wanted" ]]; then
        cmake --preset "$preset" "${options[@]}" || return 1
        echo "$wanted" >"$stamp"
    fi
}

# Builds the given targets, or everything. build PRESET [TARGET…]
build() {
    configure "$1" || return 1
    if [[ $# -gt 1 ]]; then
        cmake --build "build/$1" --target "${@:2}"
    else
        cmake --build "build/$1"
    fi
}
