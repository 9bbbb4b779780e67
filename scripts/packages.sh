# The system packages that each purpose needs, and how to install them. Sourced from the repository's root, by `dev` and
# by the scripts that install packages.
# shellcheck shell=bash
# shellcheck source=scripts/llvm.sh
source scripts/llvm.sh

# One word per package; "a|b" means either, whichever the distribution provides.
packages_for() {
    case "$(uname -s)/$1" in
    Linux/build)
        echo ca-certificates g++ cmake ninja-build pkg-config python3 \
            libfmt-dev 'libexpected-dev|libtl-expected-dev' libglib2.0-dev libplist-dev libssl-dev libutf8proc-dev
        ;;
    Linux/ui)
        # The development packages do not depend on the QML modules, which are needed at run time.
        echo qt6-base-dev qt6-declarative-dev 'qt6-svg-dev|libqt6svg6-dev' \
            qml6-module-qtqml qml6-module-qtqml-models qml6-module-qtqml-workerscript qml6-module-qtquick \
            qml6-module-qtquick-window qml6-module-qtquick-templates qml6-module-qtquick-controls \
            qml6-module-qtquick-layouts qml6-module-qtquick-dialogs \
            qml6-module-qt-labs-folderlistmodel qml6-module-qt-labs-qmlmodels qml6-module-qt-labs-platform fonts-inter
        ;;
    # Needed only for a window on a display, and for screenshots of one.
    Linux/window) echo qt6-wayland fonts-noto-color-emoji ;;
    Linux/test)
        echo ccache libgtest-dev libgmock-dev nlohmann-json3-dev bubblewrap dbus-daemon e2fsprogs libglib2.0-bin \
            libxml2-utils desktop-file-utils appstream
        ;;
    Linux/display) echo xvfb xauth ;;
    Linux/npm) echo nodejs npm ;;
    Linux/lint) echo "clang-format-$lint_llvm|clang-format" "clang-tidy-$lint_llvm|clang-tidy" shellcheck yamllint ;;
    Linux/bench) echo hyperfine ncdu gdu rmlint jdupes rdfind fdupes ;;
    Linux/fuzz) echo "clang-$clang_llvm" "libclang-rt-$clang_llvm-dev" ;;
    Linux/macos-check) echo "clang-$clang_llvm" "libc++-$clang_llvm-dev" "lld-$clang_llvm" binutils ;;
    Linux/package) echo file dpkg-dev lintian ;;
    Linux/package-check) echo debootstrap xvfb imagemagick ;;
    Darwin/build) echo cmake ninja pkg-config fmt tl-expected libplist openssl@3 utf8proc ;;
    Darwin/ui) echo qt ;;
    Darwin/test) echo ccache googletest nlohmann-json ;;
    Darwin/npm) echo node ;;
    Darwin/lint) echo llvm shellcheck yamllint ;;
    Darwin/fuzz) echo llvm ;;
    Darwin/bench) echo hyperfine ncdu gdu ;;
    Darwin/*) ;;
    *)
        echo "dev: no package list for $1 on $(uname -s)" >&2
        return 1
        ;;
    esac
}

# Installs and lists whatever the given purposes lack; does nothing if they lack nothing.
require_packages() {
    local purpose wanted package missing=()
    for purpose in "$@"; do
        wanted=$(packages_for "$purpose")
        for package in $wanted; do
            is_installed "$package" || missing+=("$package")
        done
    done
    [[ ${#missing[@]} -gt 0 ]] || return 0
    case "$(uname -s)" in
    Linux) install_with_apt "${missing[@]}" ;;
    Darwin) install_with_brew "${missing[@]}" ;;
    esac
}

# The icons and a font, which come from npm's registry. If none is configured, installs npm, which has a default.
require_assets() {
    local status=0
    python3 scripts/fetch_assets.py || status=$?
    if [[ $status -eq 3 ]]; then
        require_packages npm
        python3 scripts/fetch_assets.py
        return
    fi
    return "$status"
}

is_installed() {
    local name
    for name in ${1//|/ }; do
        if [[ $(uname -s) == Darwin ]]; then
            brew list --formula --versions "$name" >/dev/null 2>&1 && return 0
        elif [[ $(dpkg-query -W -f '${db:Status-Status}' "$name" 2>/dev/null) == installed ]]; then
            return 0
        fi
    done
    return 1
}

install_with_apt() {
    local package name as_root=() chosen=()
    if ! command -v apt-get >/dev/null; then
        echo "dev: these packages are missing, and there is no apt-get to install them with: $*" >&2
        return 1
    fi
    if [[ $EUID -ne 0 ]]; then
        if ! command -v sudo >/dev/null; then
            echo "dev: these packages are missing; install them as root (there is no sudo): $*" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get -q update
    for package in "$@"; do
        for name in ${package//|/ }; do
            if [[ -n $(apt-cache madison "$name" 2>/dev/null) ]]; then
                break
            fi
        done
        chosen+=("$name")
    done
    echo "dev: installing with apt: ${chosen[*]}"
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y install --no-install-recommends "${chosen[@]}"
}

install_with_brew() {
    if ! command -v brew >/dev/null; then
        echo "dev: these packages are missing, and there is no Homebrew to install them with: $*" >&2
        return 1
    fi
    echo "dev: installing with brew: $*"
    brew install "$@"
}
