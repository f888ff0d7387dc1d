# Sourced by the scripts that make libraries for Windows from Debian's source packages.
#
# Each library is kept in a folder of its own outside of the project, by the versions and flags that it was made of, and
# made once:
#   kept_folder NAME PART...   sets `work` to that folder in ${XDG_CACHE_HOME:-~/.cache}/torvale-windows
#   hold_folder                waits until no other run works there, and keeps others out until the script ends
#   need_room MEGABYTES        stops where the disk has less for that folder
#   fetch_sources ARGUMENT...  Debian's sources, unpacked in that folder

# version_of PACKAGE: the source version of an installed package.
version_of() {
  dpkg-query -W -f='${source:Version}' "$1"
}

# What all of them are made with.
compiler_parts() {
  version_of g++-mingw-w64-x86-64-posix
}

kept_folder() {
  local name=$1 key
  shift
  key=$(printf '%s\n' "$@" | cat - cmake/mingw.cmake | sha256sum | cut -c1-12)
  work=${XDG_CACHE_HOME:-$HOME/.cache}/torvale-windows/${name//[^A-Za-z0-9.]/_}-$key
  mkdir -p "$work"
}

# Two runs at a time would be in each other's way.
hold_folder() {
  exec 9>"$work/lock"
  flock -n 9 && return
  echo "Another run is at work in $work; waiting for it"
  flock 9
}

# apt_here COMMAND...: apt with lists of its own, which name the sources of what this system's lists name, so that the
# system's own configuration stays as it is.
apt_here() {
  local apt=$work/apt
  nice apt-get -qq -o Dir::Etc::SourceList="$apt/sources.list" -o Dir::Etc::SourceParts=/dev/null \
    -o Dir::State::Lists="$apt/lists" -o Dir::Cache="$apt/cache" -o APT::Sandbox::User="$(id -un)" \
    -o Acquire::Retries=3 "$@"
}

# stop LINE...: says why there is no going on.
stop() {
  printf '%s\n' "$@" >&2
  exit 1
}

need_room() {
  local free
  free=$(df --output=avail -m "$work" | tail -n 1)
  [ "$free" -ge "$1" ] || stop "$work needs $1 MB, and its disk has ${free// /} MB left." \
    "Make room there, or let XDG_CACHE_HOME name a folder on another disk."
}

# fetch_sources ARGUMENT...: what `apt-get source` brings into the folder `work`.
fetch_sources() {
  mkdir -p "$work/apt/lists/partial" "$work/apt/cache/archives/partial"
  local keyring=/usr/share/keyrings/debian-archive-keyring.gpg options=
  [ -f "$keyring" ] && options="[signed-by=$keyring]"
  apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' 'Origin: Debian' |
    sort -u | sed "s|^|deb-src $options |" >"$work/apt/sources.list"
  [ -s "$work/apt/sources.list" ] || stop "This system has no lists of Debian's packages. Fetch them: apt-get update"
  # Else a list that could not be fetched would be a warning only.
  apt_here -o APT::Update::Error-Mode=any update && (cd "$work" && apt_here source --only-source "$@") ||
    stop "Not all of these sources of Debian could be fetched: ${*#--tar-only}" \
      "Is there a network? Are this system's packages those of today (apt-get update, apt-get upgrade)?" \
      "Then start the script again; it goes on from here."
  rm -rf "$work/apt"
}
