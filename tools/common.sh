# shellcheck shell=sh
# Shared by the scripts of this folder, which source it.

cd "$(dirname "$0")/.." || exit 1

install_dependencies() {
    [ -n "${PANEWRIGHT_SKIP_DEPENDENCIES:-}" ] || tools/install-dependencies
}

# build PRESET [TARGET...]: everything from installing packages to the built files. Says nothing
# when all goes well, and shows what the failing step printed when it does not.
build() {
    preset=$1
    shift
    install_dependencies || return
    mkdir -p "build/$preset"
    log=build/$preset/build.log
    if ! { cmake --preset "$preset" && cmake --build --preset "$preset" --parallel "$(nproc)" \
        ${1+--target "$@"}; } >"$log" 2>&1; then
        cat "$log" >&2
        return 1
    fi
}
