#!/usr/bin/env bash
# Installs Kovalin into a staging folder and builds its Debian package, then checks both as a Debian
# desktop would meet them: the installed tree, the desktop entry and the AppStream metadata (with
# Debian's validators), the icons, the manual pages, the installed program starting on a fresh
# device, the package's control fields and contents, and lintian.
#   tests/install/check-install.sh             builds the package as scripts/package does
#   tests/install/check-install.sh BUILD_DIR   packs a build folder that is already built (CI's build/)
# Prints "N passed, N failed" last and exits non-zero when a check failed.
set -uo pipefail
cd "$(dirname "$0")/../.."

passed=0
failed=0
check() { # check DESCRIPTION COMMAND...: runs the command, counts it, and shows its output when it fails
    local description="$1" output
    shift
    if output=$("$@" 2>&1); then
        passed=$((passed + 1))
        echo "ok   $description"
    else
        failed=$((failed + 1))
        echo "FAIL $description"
        [ -n "$output" ] && sed 's/^/     /' <<<"$output"
    fi
}
# A validator's report: its exit status and no line it flags as an error or a warning.
clean() {
    local output
    output=$("$@" 2>&1) || { echo "$output"; return 1; }
    ! grep -Ei '(^|[: ])(E|W|error|warning):' <<<"$output" || { echo "$output"; return 1; }
}
same() { # same EXPECTED ACTUAL
    [ "$1" = "$2" ] || { printf 'expected: %s\nactual:   %s\n' "$1" "$2"; return 1; }
}

deb=$(scripts/package "$@" | tail -n 1)
build="${1:-build-package}"
[ -f "$deb" ] || { echo "FAIL no package was built"; echo "0 passed, 1 failed"; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
stage="$work/stage"
cmake --install "$build" --prefix "$stage" --strip >/dev/null || { echo "FAIL the install"; exit 1; }

version=$(sed -n 's/^project(Kovalin VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
id=org.example.kovalin.Kovalin
programs=(kovalin)
# kovalin-cli is installed wherever the build has it.
cmake --build "$build" --target help | grep '^kovalin-cli:' >/dev/null && programs+=(kovalin-cli)

# --- the installed tree: exactly these files, nothing of the tests, benchmarks or build tools
expected=()
for program in "${programs[@]}"; do
    expected+=("bin/$program" "share/man/man1/$program.1.gz")
done
for size in 16 22 24 32 48 64 128 256; do
    expected+=("share/icons/hicolor/${size}x${size}/apps/$id.png")
done
expected+=("share/applications/$id.desktop" "share/metainfo/$id.metainfo.xml"
           share/doc/kovalin/changelog.gz share/doc/kovalin/copyright)
installed=$(cd "$stage" && find . -type f -o -type l | sed 's|^\./||' | sort)
check "the install holds exactly the programs, desktop entry, metadata, icons, manual pages and docs" \
    same "$(printf '%s\n' "${expected[@]}" | sort)" "$installed"
for program in "${programs[@]}"; do
    check "$program is a stripped executable" \
        bash -c "[ -x '$stage/bin/$program' ] && file -b '$stage/bin/$program' | grep -q 'ELF.*, stripped'"
done

# --- icons: each one a square PNG of its folder's size, with transparency
for size in 16 22 24 32 48 64 128 256; do
    check "the ${size}x${size} icon is a $size by $size RGBA PNG" \
        bash -c "file -b '$stage/share/icons/hicolor/${size}x${size}/apps/$id.png' | grep -q '^PNG image data, $size x $size, 8-bit/color RGBA'"
done

# --- the desktop entry and the metadata, by Debian's validators and against the installed tree
desktop="$stage/share/applications/$id.desktop"
metainfo="$stage/share/metainfo/$id.metainfo.xml"
check "desktop-file-validate finds no error or warning" clean desktop-file-validate "$desktop"
check "appstreamcli validates the metadata" clean appstreamcli validate --no-net --explain "$metainfo"
check "appstreamcli validates the installed tree (entry, metadata and icons together)" \
    clean appstreamcli validate-tree --no-net "$stage"
field() { sed -n "s/^$1=//p" "$desktop"; }
check "the desktop entry starts the installed kovalin" same kovalin "$(field Exec)"
check "the desktop entry names the installed icon" same "$id" "$(field Icon)"
check "the metadata launches the desktop entry" \
    grep -q "<launchable type=\"desktop-id\">$id.desktop</launchable>" "$metainfo"
check "the metadata provides exactly the installed programs" \
    same "$(printf '%s\n' "${programs[@]}" | sort)" "$(sed -n 's|.*<binary>\(.*\)</binary>.*|\1|p' "$metainfo" | sort)"
check "the metadata's release is the program's version" grep -q "<release version=\"$version\"" "$metainfo"
shots=$(sed -n 's|.*<image>.*/screenshots/\(.*\.png\)</image>.*|\1|p' "$metainfo")
check "the metadata shows screenshots" test -n "$shots"
for shot in $shots; do
    check "the metadata's screenshot $shot is one of the README's" \
        bash -c "[ -f 'docs/screenshots/$shot' ] && grep -q '(docs/screenshots/$shot)' README.md"
done

# --- manual pages: one per program, rendered by man without a warning
for program in "${programs[@]}"; do
    page="$stage/share/man/man1/$program.1.gz"
    check "man renders $program(1) without a warning" \
        clean env LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$page"
    check "$program(1) names its program and the program's version" \
        bash -c "text=\$(MANWIDTH=80 man -l '$page' 2>/dev/null) && grep -q '^${program^^}(1) ' <<<\"\$text\" && \
                 grep -A1 '^NAME' <<<\"\$text\" | grep -q '^ *${program} - ' && grep -q 'Kovalin $version' <<<\"\$text\""
done

# --- the installed program, away from the checkout: it starts on a device and draws its screens
run() { (cd / && env -i PATH=/usr/bin:/bin HOME="$work/home" XDG_RUNTIME_DIR="$work/runtime" \
                    QT_QPA_PLATFORM=offscreen timeout 120 "$@"); }
# A device whose store, written in the documented format, holds only the setting that the release
# notes were seen, so that the start goes straight to the Today page.
device() {
    mkdir -p "$1"
    sqlite3 "$1/objectstore.db" <<'SQL'
PRAGMA application_id = 1263490625;
PRAGMA user_version = 1;
CREATE TABLE databases (oid INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE, type INTEGER NOT NULL,
  sort_propid INTEGER, sort_flags INTEGER NOT NULL DEFAULT 0) STRICT;
CREATE TABLE records (oid INTEGER PRIMARY KEY, db INTEGER NOT NULL REFERENCES databases(oid) ON DELETE CASCADE,
  sort_key ANY) STRICT;
CREATE INDEX records_in_order ON records(db, sort_key, oid);
CREATE TABLE props (record INTEGER NOT NULL REFERENCES records(oid) ON DELETE CASCADE, propid INTEGER NOT NULL,
  value ANY, PRIMARY KEY (record, propid)) STRICT, WITHOUT ROWID;
CREATE TABLE registry (key TEXT NOT NULL, name TEXT NOT NULL, type INTEGER NOT NULL, value ANY,
  PRIMARY KEY (key, name)) STRICT;
CREATE TABLE registry_keys (key TEXT NOT NULL PRIMARY KEY) STRICT;
INSERT INTO registry_keys VALUES ('HKEY_CURRENT_USER'), ('HKEY_CURRENT_USER\Software'),
  ('HKEY_CURRENT_USER\Software\Orn'), ('HKEY_CURRENT_USER\Software\Orn\Kovalin');
INSERT INTO registry VALUES ('HKEY_CURRENT_USER\Software\Orn\Kovalin', 'DontShow', 4, 1);
SQL
}
# The program made the default user's upper-body log as its pages loaded.
started() { [ "$(sqlite3 "$1/objectstore.db" "SELECT count(*) FROM databases WHERE name = 'Kov2AUpperBody'")" = 1 ]; }
mkdir -p "$work/home" && mkdir -m 700 "$work/runtime"
device "$work/device"
device "$work/home/.local/share/Kovalin/device"
check "the installed kovalin tells its version" same "Kovalin $version" "$(run "$stage/bin/kovalin" --version)"
check "the installed kovalin starts on --device and ends once the Today page is drawn" \
    bash -c "$(declare -f run started); work='$work'; run '$stage/bin/kovalin' --device '$work/device' \
             --quit-after-start && started '$work/device'"
check "the installed kovalin's default device is in the user's data folder" \
    bash -c "$(declare -f run started); work='$work'; run '$stage/bin/kovalin' --quit-after-start && \
             started '$work/home/.local/share/Kovalin/device'"
check "the installed kovalin runs its screen tour on a fresh device, the Today page 240 by 320" \
    bash -c "$(declare -f run); work='$work'; run '$stage/bin/kovalin' --screenshots '$work/shots' >/dev/null && \
             file -b '$work/shots/today.png' | grep -q '^PNG image data, 240 x 320'"

# --- the Debian package
control() { dpkg-deb --field "$deb" "$1"; }
check "the package is kovalin $version for this machine" \
    same "kovalin $version $(dpkg --print-architecture)" "$(control Package) $(control Version) $(control Architecture)"
depends=$(control Depends | tr -d ' ' | tr ',' '\n' | sed 's/(.*//' | sort)
for package in libc6 libqt6core6 libqt6gui6 libqt6widgets6 libqt6network6 libsqlite3-0 qt6-qpa-plugins fonts-wine; do
    check "the package depends on $package" grep -qx "$package" <<<"$depends"
done
check "the package depends on no development package" bash -c "! grep -- '-dev\$' <<<'$depends'"
contents=$(dpkg-deb --contents "$deb")
check "the package holds the installed tree under /usr" \
    same "$(sed 's|^|./usr/|' <<<"$installed")" "$(awk '$1 !~ /^d/ {print $6}' <<<"$contents" | sort)"
check "every file in the package is root's, executables 0755 and the rest 0644" \
    bash -c "awk '\$1 !~ /^d/ && !(\$2 == \"root/root\" && ((\$6 ~ /^\\.\\/usr\\/bin\\// && \$1 == \"-rwxr-xr-x\") || \
              (\$6 !~ /^\\.\\/usr\\/bin\\// && \$1 == \"-rw-r--r--\"))) {print; bad = 1} END {exit bad}' <<<'$contents'"
lintian_report=$(lintian --fail-on error --display-level '>=warning' "$deb" 2>&1)
lintian_status=$?
[ -n "$lintian_report" ] && sed 's/^/     lintian: /' <<<"$lintian_report"
check "lintian finds no error in the package" test "$lintian_status" -eq 0

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
