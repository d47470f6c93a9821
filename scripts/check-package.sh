#!/usr/bin/env bash
# The desktop integration and the Debian package, checked against Debian's own tools:
# the desktop entry, the software-centre entry, the manual pages, bash completion, the
# pool file type's magic, then the package itself (lintian, and the program started
# from the package's files). Needs the Linux build in build/; ships build-win's
# aqwinctl.exe when there is one.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
work=$(mktemp -d)
# The Windows helper's folder is given to the build for the package only.
trap 'rm -rf "$work"; cmake -S . -B build -DAQ_WIN_BUILD_DIR= >/dev/null' EXIT
fail() { echo "check-package: $*" >&2; exit 1; }

win=()
[ -f build-win/aqwinctl.exe ] && win=(-DAQ_WIN_BUILD_DIR="$root/build-win")
cmake -S . -B build "${win[@]}" >/dev/null
cmake --build build >/dev/null
export PATH="$root/build:$PATH"
version=$(aqfm --version | sed 's/.* //')

echo "== desktop entry and software-centre entry"
desktop-file-validate packaging/aqfilemanager.desktop
metainfo=(build/packaging/*.metainfo.xml)
appstreamcli validate --no-net "${metainfo[@]}"
grep -q "<release version=\"$version\"" "${metainfo[@]}" || fail "the metainfo has no release $version"
head -1 packaging/debian-changelog | grep -q "($version)" || fail "packaging/debian-changelog does not start at $version"

echo "== manual pages"
for page in build/packaging/aqfm.1 build/packaging/AqFileManager.1; do
  warnings=$(groff -ww -z -man "$page" 2>&1)
  [ -z "$warnings" ] || fail "$page: $warnings"
  MANWIDTH=80 man -l "$page" >"$work/page.txt" 2>"$work/man.err"
  [ -s "$work/man.err" ] && fail "$page: $(cat "$work/man.err")"
done
sed 's/\\-/-/g; s/\\f[BRI]//g' build/packaging/aqfm.1 >"$work/aqfm.txt"
for command in $(aqfm --help | sed -n 's/^  \([a-z]\{1,\}\) .*/\1/p'); do
  usage=$(aqfm "$command" --help | sed -n '1s/^usage: //p')
  grep -q "aqfm $command" "$work/aqfm.txt" || fail "man aqfm lacks $command"
  for option in $(grep -oE -- '(^|[ [|])--?[a-z][-a-z]*' <<<"$usage" | tr -d ' [|'); do
    grep -q -- "$option" "$work/aqfm.txt" || fail "man aqfm lacks $command $option"
  done
done

echo "== bash completion"
mkdir -p "$work/files/folder" && touch "$work/files/"{a.aqp,B.AQP,c.dna,d.txt}
complete_line() {
  (cd "$work/files" && bash -c '
    source /usr/share/bash-completion/bash_completion
    source "$0"
    COMP_WORDS=("${@}"); COMP_CWORD=$(($# - 1)); COMP_LINE="$*"; COMP_POINT=${#COMP_LINE}
    _aqfm aqfm "${COMP_WORDS[-1]}" "${COMP_WORDS[-2]}"
    [ ${#COMPREPLY[@]} -eq 0 ] || printf "%s\n" "${COMPREPLY[@]}" | sort | tr "\n" " "' "$root/packaging/completion/aqfm.bash" "$@")
}
expect() {
  local want=$1; shift
  local got; got=$(complete_line "$@")
  [ "$got" = "$want" ] || fail "completing '$*': got '$got', want '$want'"
}
expect "scores series species " aqfm s
expect "--seed --split --state " aqfm generate --s
expect "" aqfm generate --seed ""
expect "B.AQP a.aqp folder " aqfm info ""
expect "" aqfm info a.aqp ""
expect "c.dna folder " aqfm dna a.aqp 0 -o ""
expect "folder " aqfm harvest ""
expect "B.AQP a.aqp folder " aqfm merge a.aqp ""
expect "--csv --depth --help --plain --species " aqfm series a.aqp --

echo "== pool file type"
mkdir -p "$work/data/mime/packages"
cp packaging/aqfilemanager-mime.xml "$work/data/mime/packages/aqfilemanager.xml"
XDG_DATA_HOME="$work/data" update-mime-database "$work/data/mime"
cd "$work/files"
aqfm default -o default
aqfm generate --type 2 --seed 7 --placement 2 -o chaotic
{ printf '\5'; tail -c +2 default; } >version5
# No drifters: the default pool's header with a count of 0, then its food and the rest.
{ head -c 12 default; printf '\0\0\0\0'; tail -c +$((16 + 4016 * 49 + 1)) default; } >nodrifters
{ printf '\4\0\0\0'; head -c 4000 /dev/urandom; } >random
{ printf '\4\0\0\0'; printf 'not a pool %.0s' {1..400}; } >text
for f in default chaotic version5 nodrifters random text; do
  aqfm info "$f" >/dev/null 2>&1 && want=application/x-aquarium-pool || want=other
  got=$(XDG_DATA_HOME="$work/data" xdg-mime query filetype "$f" 2>/dev/null)
  [ "$got" = application/x-aquarium-pool ] || got=other
  [ "$got" = "$want" ] || fail "the file type of $f is $got, not $want"
done
cd "$root"

echo "== Debian package"
rm -f build/aqfilemanager_*.deb
(cd build && cpack -G DEB >"$work/cpack.log" 2>&1) || { cat "$work/cpack.log"; fail "cpack failed"; }
deb=(build/aqfilemanager_"$version"_amd64.deb)
[ -f "${deb[0]}" ] || fail "no package ${deb[0]}"
lintian --fail-on error,warning "${deb[0]}" >"$work/lintian.log" 2>&1 ||
  { grep -v 'running with root privileges' "$work/lintian.log"; fail "lintian finds fault with ${deb[0]}"; }
dpkg-deb -x "${deb[0]}" "$work/root"
for f in usr/bin/AqFileManager usr/bin/aqfm usr/libexec/aqfilemanager/Aquarium/Aquarium \
  usr/share/applications/aqfilemanager.desktop usr/share/man/man1/aqfm.1.gz \
  usr/share/bash-completion/completions/aqfm usr/share/mime/packages/aqfilemanager.xml \
  "usr/share/metainfo/$(basename "${metainfo[0]}")" ${win:+usr/libexec/aqfilemanager/aqwinctl.exe}; do
  [ -e "$work/root/$f" ] || fail "the package lacks /$f"
done
"$work/root/usr/bin/aqfm" default -o "$work/packaged.aqp"
cmp -s "$work/packaged.aqp" "$work/files/default" || fail "the packaged aqfm writes another default pool"
mkdir -m 700 "$work/run"
HOME="$work/home" XDG_RUNTIME_DIR="$work/run" \
  "$work/root/usr/bin/AqFileManager" --picture map "$work/packaged.aqp" "$work/map.png" >/dev/null
[ -s "$work/map.png" ] || fail "the packaged program draws no map"
echo "check-package: ${deb[0]} passes"
