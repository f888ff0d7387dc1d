#!/usr/bin/env bash
# check_package.sh [PRESET]: makes the packages of a build (preset release) and fails unless a desktop can make use of
# them: versions, menu entry, metadata, file types, Debian's rules, and starts of the unpacked packages on a virtual
# display. Each part says how it went.
set -uo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.." || exit 1
kPreset=${1:-release}
kPackages=build/$kPreset/packages
kTemp=$(mktemp -d)
trap 'rm -rf "$kTemp"' EXIT
kDebian=$kTemp/debian
kShare=$kDebian/usr/share
# Blanks, since users have them in the names of their folders.
kUnpacked=$kTemp/"my programs"
kKinds=(PFD:planned-field CSD:constant-slope DSD:dual-slope CSH:computer-holes XFD:existing-field LHD:limited-holes)
failed=0

# part TITLE COMMAND...: one part of the check.
part() {
  local title=$1 start=$SECONDS
  shift
  if "$@" >"$kTemp/log" 2>&1; then
    echo "ok      $title ($((SECONDS - start)) s)"
  else
    sed 's/^/        /' "$kTemp/log"
    echo "FAILED  $title ($((SECONDS - start)) s)"
    failed=$((failed + 1))
  fi
}

complain() {
  echo "$*"
  return 1
}

made() {
  scripts/make_packages.sh "$kPreset" || return 1
  mkdir "$kUnpacked"
  dpkg-deb -x "$kPackages"/torvale_*.deb "$kDebian" && tar -xf "$kPackages"/torvale-*.tar.gz -C "$kUnpacked"
}

# Every text that names the release names the one that the programs carry.
versions() {
  local version bad=0 file
  version=$(sed -n 's/^project(torvale VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
  [ "$(dpkg-deb -f "$kPackages"/torvale_*.deb Version)" = "$version" ] || complain "the Debian package" || bad=1
  [ "$(dpkg-parsechangelog -l packaging/debian/changelog -S Version)" = "$version" ] ||
    complain "packaging/debian/changelog" || bad=1
  [ "$(sed -n 's/^## \([0-9.]*\) .*/\1/p' NEWS.md | head -n 1)" = "$version" ] || complain "NEWS.md" || bad=1
  [ "$(sed -n 's/.*<release version="\([0-9.]*\)".*/\1/p' packaging/*.metainfo.xml | head -n 1)" = "$version" ] ||
    complain "the metadata" || bad=1
  for file in packaging/*.1; do
    grep -q "^\.TH .*\"TORVALE $version\"" "$file" || complain "$file" || bad=1
  done
  [ $bad -eq 0 ] || complain "tells another version than $version"
}

menu_entry() {
  local entry=$kShare/applications/torvale.desktop said program icon
  said=$(desktop-file-validate --warn-kde "$entry" 2>&1)
  [ -z "$said" ] || complain "$said" || return 1
  program=$(sed -n 's/^Exec=\([^ ]*\) %f$/\1/p' "$entry")
  [ -x "$kDebian/usr/bin/$program" ] || complain "starts '$program', which is not in the package" || return 1
  icon=$(sed -n 's/^Icon=//p' "$entry")
  # The pictures are of the drawing as it is now (scripts/render_icons.sh), but for what one renderer does otherwise
  # than the next.
  local size picture difference
  for size in 16 22 24 32 48 64 128 256; do
    picture=$kShare/icons/hicolor/${size}x$size/apps/$icon.png
    rsvg-convert --width=$size --height=$size "$kShare/icons/hicolor/scalable/apps/$icon.svg" \
      --output="$kTemp/icon.png" || return 1
    difference=$(compare -metric RMSE "$picture" "$kTemp/icon.png" null: 2>&1 | sed -n 's/.*(\(.*\))/\1/p')
    awk -v d="$difference" 'BEGIN { exit !(d != "" && d < 0.02) }' ||
      complain "the icon of size $size differs from its drawing: $difference" || return 1
  done
}

metadata() { appstreamcli validate-tree --no-net --strict "$kDebian"; }

# type_of FILE: the type that a desktop takes it for which knows the packaged types and the usual ones.
type_of() {
  XDG_DATA_HOME=$kTemp/none XDG_DATA_DIRS=$kTemp/types gio info -a standard::content-type "$1" |
    sed -n 's/.*standard::content-type: //p'
}

expect_type() {
  local found
  found=$(type_of "$1")
  [ "$found" = "$2" ] || complain "${1#"$kTemp"/} is taken for '$found', not '$2'"
}

file_types() {
  local kind extension type files=$kTemp/files bad=0
  mkdir -p "$kTemp/types/mime/packages" "$files"
  cp "$kShare/mime/packages/torvale.xml" /usr/share/mime/packages/freedesktop.org.xml "$kTemp/types/mime/packages/"
  XDG_DATA_DIRS=$kTemp/types update-mime-database "$kTemp/types/mime" || return 1

  for kind in "${kKinds[@]}"; do
    extension=${kind%%:*} type=application/x-torvale-${kind#*:}
    cp "data/samples/ditch_corner.$extension" "$files/a field.$extension"
    cp "data/samples/ditch_corner.$extension" "$files/small.${extension,,}"
    expect_type "$files/a field.$extension" "$type" || bad=1
    expect_type "$files/small.${extension,,}" "$type" || bad=1
  done

  # A survey is saved as a file of no extension; users name it .DAT, as the dialog does.
  printf '%s\n' 'type txtInfo(0) "Corner"' "dialog \"$files/survey\"" 'click mnuFileSaveAs' |
    "$kDebian/usr/bin/torvale_script" || return 1
  cp "$files/survey" "$files/survey.DAT"
  expect_type "$files/survey" application/x-torvale-design || bad=1
  expect_type "$files/survey.DAT" application/x-torvale-design || bad=1

  # Files of others keep their types.
  printf 'plain text\n' >"$files/notes.DAT"
  head -c 999 /dev/zero >"$files/zeros.dat"
  printf '"1.5","2.5"\r\n' >"$files/numbers.dat"
  printf '# A script of the C shell\n' >"$files/script.csh"
  expect_type "$files/notes.DAT" text/plain || bad=1
  expect_type "$files/zeros.dat" application/octet-stream || bad=1
  expect_type "$files/numbers.dat" text/plain || bad=1
  expect_type "$files/script.csh" application/x-csh || bad=1
  return $bad
}

# The menu entry opens the types that are declared, and the metadata tells the same.
same_types() {
  local declared opened told
  declared=$(sed -n 's/.*<mime-type type="\([^"]*\)".*/\1/p' "$kShare/mime/packages/torvale.xml" | sort)
  opened=$(sed -n 's/^MimeType=//p' "$kShare/applications/torvale.desktop" | tr ';' '\n' | sed '/^$/d' | sort)
  told=$(sed -n 's/.*<mediatype>\(.*\)<.*/\1/p' "$kShare"/metainfo/*.xml | sort)
  [ -n "$declared" ] || complain "no types" || return 1
  diff <(echo "$declared") <(echo "$opened") && diff <(echo "$declared") <(echo "$told")
}

manuals() {
  local page said
  for page in "$kShare"/man/man1/*.gz; do
    said=$(MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
    [ -z "$said" ] || complain "$page: $said" || return 1
  done
}

debian_rules() { lintian --fail-on error,warning "$kPackages"/torvale_*.deb; }

# start FOLDER: the program installed in the folder opens a design and finds its data; what it keeps stays out of there.
start() {
  local home=$kTemp/home design=$kTemp/"my fields"/"corner 1.PFD" kept before entry
  rm -rf "$home"
  mkdir -p "$kTemp/my fields"
  cp data/samples/ditch_corner.PFD "$design"
  before=$(find "$1" | sort)
  scripts/start_on_xvfb.sh "$1/bin/torvale" /dev/null "$home" '^TORVALE +Planned Field Design' "$design" || return 1
  [ "$(find "$1" | sort)" = "$before" ] || complain "the program wrote into its folder" || return 1
  kept=$home/.local/share/TORVALE/TORVALE
  grep -qF "$design" "$kept/RecentTORVALEFileName.Dat" || complain "the design is not a recent file" || return 1
  # Opening a design writes the defaults anew.
  [ -s "$kept/Default50.TVL" ] || complain "no defaults" || return 1
  for entry in "$1"/share/torvale/*; do
    [ "${entry##*/}" = Default50.TVL ] || diff -r "$entry" "$kept/${entry##*/}" || return 1
  done
}

part "packages are made" made
part "versions" versions
part "menu entry and icons" menu_entry
part "metadata" metadata
part "file types" file_types
part "same types everywhere" same_types
part "manuals" manuals
part "Debian's rules" debian_rules
part "Debian package starts" start "$kDebian/usr"
part "archive starts from any folder" start "$(echo "$kUnpacked"/torvale-*)"
[ $failed -eq 0 ]
