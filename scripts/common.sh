# What ./run and ./test share: the packages and the build. Sourced, with the repository as working folder.

packages=(
  # build
  g++ cmake ninja-build ccache qt6-base-dev libsqlite3-dev libxlsxwriter-dev libgtest-dev iso-codes
  # run: the windows with their fonts, and the archiver of the reports
  libqt6widgets6 libqt6printsupport6 libqt6network6 libsqlite3-0 libxlsxwriter4 fonts-dejavu-core fonts-liberation arj
  # tests
  poppler-utils unzip
)

as_root() {
  if [[ $(id -u) -eq 0 ]]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    echo "Packages are missing and neither root nor sudo is at hand: $*" >&2
    return 1
  fi
}

# Installs what is missing, and does nothing at all when everything is there.
ensure_packages() {
  # A session with Wayland alone needs Qt's own way to it.
  if [[ -n ${WAYLAND_DISPLAY:-} && -z ${DISPLAY:-} ]]; then packages+=(qt6-wayland); fi
  local missing=() package state
  for package in "${packages[@]}"; do
    state=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [[ $state == installed ]] || missing+=("$package")
  done
  if ((${#missing[@]} == 0)); then return 0; fi
  echo "Installing: ${missing[*]}"
  as_root apt-get update
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"
}

# Builds the given targets of the release preset, or all of them.
build() {
  cmake --preset release
  if (($# > 0)); then
    cmake --build --preset release --target "$@"
  else
    cmake --build --preset release
  fi
}
