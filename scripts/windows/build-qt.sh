#!/usr/bin/env bash
# Builds Qt 5 for 64-bit Windows from Debian's source package (Core, Gui, Widgets and Test, the platforms
# windows, offscreen and minimal) into the folder that KESTOVA_QT_WINDOWS names, build/qt5-mingw otherwise.
# Takes about a quarter of an hour on two cores. What it works with stays in build/qt5-mingw-source.
source "$(dirname "$0")/../common.sh"

prefix=$(realpath -m "${KESTOVA_QT_WINDOWS:-build/qt5-mingw}")
work=$PWD/build/qt5-mingw-source
./scripts/windows/fetch-tools.sh
install_missing make perl python3 dpkg-dev

# Qt asks for the compilers by names without a variant, and Qt Test needs the one with POSIX threads
# (the others lack std::mutex): they are found under those names in a folder of their own.
mkdir -p "$work/tools"
for tool in gcc g++ cpp; do
    ln -sf "$(command -v x86_64-w64-mingw32-$tool-posix)" "$work/tools/x86_64-w64-mingw32-$tool"
done
export PATH=$work/tools:$PATH

# The source comes through a package list of its own: the machine's stays as it is.
fetch_source() {
    mkdir -p "$work/apt/lists/partial" "$work/apt/sources"
    cat >"$work/apt/sources/debian.sources" <<END
Types: deb-src
URIs: http://deb.debian.org/debian
Suites: bookworm
Components: main
Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg
END
    local options=(-o Dir::Etc::SourceList=/dev/null -o Dir::Etc::SourceParts="$work/apt/sources"
                   -o Dir::State::Lists="$work/apt/lists" -o Dir::Cache::srcpkgcache= -o Dir::Cache::pkgcache=
                   -o APT::Sandbox::User=root)
    apt-get "${options[@]}" update -qq
    (cd "$work" && apt-get "${options[@]}" source -qq qtbase-opensource-src)
}
compgen -G "$work/qtbase-opensource-src-*/configure" >/dev/null || fetch_source
source_folder=$(dirname "$(compgen -G "$work/qtbase-opensource-src-*/configure")")

# The package leaves out wintab.h and zlib's source, hence no tablets and the zlib of mingw-w64.
build=$work/build-$(cksum <<<"$prefix" | cut -d' ' -f1) # the folder is compiled in
mkdir -p "$build"
cd "$build"
[ -f config.summary ] || "$source_folder/configure" -opensource -confirm-license -release -shared \
    -xplatform win32-g++ -device-option CROSS_COMPILE=x86_64-w64-mingw32- -prefix "$prefix" \
    -nomake examples -nomake tests -no-opengl -no-openssl -no-dbus -no-icu -system-zlib -qt-libpng -no-libjpeg \
    -no-gif -no-ico -qt-pcre -qt-freetype -qt-harfbuzz -no-pch -no-feature-concurrent -no-feature-tabletevent \
    -no-feature-printer -no-feature-sql -no-feature-bearermanagement >configure.log 2>&1 ||
    { tail -40 configure.log; exit 1; }

# Runs make; what it says is shown only when it fails.
make_quietly() {
    make -s "$@" >>"$build/make.log" 2>&1 || { tail -40 "$build/make.log"; return 1; }
}

# make_parts FOLDER PROJECT PART ...: builds and installs parts of the tree.
make_parts() {
    local folder=$1 project=$2
    shift 2
    local install=("${@/%/-install_subtargets}")
    mkdir -p "$folder"
    cd "$build/$folder"
    "$build/bin/qmake" "$source_folder/$folder/$project"
    make_quietly -j "$(nproc)" "${@/#/sub-}"
    make_quietly "${install[@]/#/sub-}"
    cd "$build"
}
echo "Building Qt for Windows in $build"
make_parts src src.pro widgets testlib platformsupport
make_parts src/plugins plugins.pro platforms styles
make_quietly install_mkspecs sub-qmake-qmake-aux-pro-install_subtargets
echo "Qt for Windows is in $prefix"
