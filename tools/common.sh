# SPDX-License-Identifier: GPL-3.0-or-later
# Shared by ./run, ./check and the scripts in this folder. Sourced by bash; `root` is the project's folder.

say() { printf '%s\n' "$*" >&2; }
fail() { say "$*"; exit 1; }

# install_packages FILE...: installs what is missing of the packages named in the files, and asks nothing when nothing is.
install_packages() {
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        say "Not a Debian system: the packages in $* must be there already."
        return
    fi
    local wanted missing
    mapfile -t wanted < <(sed -e 's/#.*//' -e 's/[[:space:]]//g' -e '/^$/d' "$@")
    # Installed ones are printed as "ii"; unknown names only reach standard error.
    mapfile -t missing < <(comm -13 \
        <(dpkg-query -W -f='${db:Status-Abbrev} ${Package}\n' "${wanted[@]}" 2>/dev/null \
            | sed -n 's/^.i  *//p' | sort -u) \
        <(printf '%s\n' "${wanted[@]}" | sort -u))
    if [ ${#missing[@]} -eq 0 ]; then
        return
    fi
    say "Installing: ${missing[*]}"
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null \
            || fail "Neither root nor sudo. As root, please: apt-get install ${missing[*]}"
        as_root=(sudo)
    fi
    local apt=(env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=600 -o Acquire::Retries=3)
    "${as_root[@]}" "${apt[@]}" update >&2 \
        || say "The package lists could not be refreshed; going on with those that are there."
    "${as_root[@]}" "${apt[@]}" install -y --no-install-recommends "${missing[@]}" >&2 </dev/null \
        || fail "Some packages could not be installed: ${missing[*]}"
}

# configure PRESET [OPTION...]: configures build/PRESET, but only when it isn't yet, or when the presets have changed since or the
# project has moved. Ninja itself sees to every other change.
configure() {
    local preset=$1 dir=$root/build/$1
    shift
    if [ -f "$dir/build.ninja" ] && [ ! "$root/CMakePresets.json" -nt "$dir/build.ninja" ] \
        && grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$dir/CMakeCache.txt"; then
        return
    fi
    cmake --fresh -S "$root" --preset "$preset" "$@" >&2
}

# source_files SUFFIX...: the project's files with these suffixes, new ones included and deleted ones left out, ended by NULs.
source_files() {
    local patterns=("${@/#/*.}")
    if git -C "$root" rev-parse --is-inside-work-tree >/dev/null 2>&1; then
        git -C "$root" ls-files -z --cached --others --exclude-standard --deduplicate -- "${patterns[@]}"
    else
        local tests=() pattern
        for pattern in "${patterns[@]}"; do
            tests+=(-o -name "$pattern")
        done
        (cd "$root" && find . -path ./build -prune -o -type f \( "${tests[@]:1}" \) -print0)
    fi | while IFS= read -r -d '' file; do
        [ -f "$root/$file" ] && printf '%s\0' "$file"
    done
    return 0
}
