# Installs what is missing, for the commands at the root. To be sourced:
#
#   source "$root/tools/ensure.sh"
#   ensure web native        # the groups of tools/packages.txt
#   ensure_npm               # node_modules as package-lock.json says
#
# When all is there this takes a few milliseconds.

oldest_node=18

# The package names of the given groups that are not there, each on a line.
missing_packages() {
  local group package proof
  while read -r group package proof; do
    [[ -z $group || $group == "#"* || " $* " != *" $group "* ]] && continue
    case $proof in
      /*) [[ -e $proof ]] || echo "$package" ;;
      *) command -v "$proof" >/dev/null || echo "$package" ;;
    esac
  done <"$root/tools/packages.txt"
}

# How to become root: nothing where we are, sudo where there is one. It may ask for a password only where
# someone is there to answer.
become_root=()
if ((EUID != 0)); then
  become_root=(sudo)
  [[ -t 0 && -z ${CI:-} ]] || become_root+=(-n)
fi

can_install() {
  command -v apt-get >/dev/null && { ((EUID == 0)) || "${become_root[@]}" true 2>/dev/null; }
}

apt_get() {
  ${become_root[@]+"${become_root[@]}"} env DEBIAN_FRONTEND=noninteractive \
    apt-get -q -y -o DPkg::Lock::Timeout=300 "$@"
}

# What the package manager says stands in build/install.log, and its end is shown where it fails. A list that
# cannot be renewed is no failure yet: an older one may do.
apt_install() {
  local log=$root/build/install.log
  mkdir -p "$root/build"
  { apt_get update; apt_get install --no-install-recommends "$@"; } >"$log" 2>&1 || {
    tail -n 20 "$log" >&2
    return 1
  }
}

ensure() {
  local missing
  missing=$(missing_packages "$@" | xargs)
  if [[ -n $missing ]]; then
    if ! can_install; then
      echo "Install this first, as root: apt-get install $missing" >&2
      return 1
    fi
    echo "Installing $missing (see build/install.log)"
    # shellcheck disable=SC2086  # a list of words
    apt_install $missing || return 1
    missing=$(missing_packages "$@" | xargs)
    [[ -z $missing ]] || {
      echo "Still missing: $missing" >&2
      return 1
    }
  fi
  if (($(node -p 'process.versions.node.split(".")[0]') < oldest_node)); then
    echo "Install node $oldest_node or newer first; this is $(node --version)" >&2
    return 1
  fi
}

# Two commands at a time wait for each other here, and the second finds the work done.
ensure_npm() {
  mkdir -p "$root/build"
  (
    flock 9
    local stamp=$root/node_modules/.tabulon-lock
    cmp -s "$root/package-lock.json" "$stamp" && exit 0
    (cd "$root" && npm ci --no-progress --loglevel=error) || exit 1
    cp "$root/package-lock.json" "$stamp"
  ) 9>"$root/build/npm.lock"
}

# cached <preset> <variable>: what its build folder has been configured with, nothing where there is none.
cached() {
  sed -n "s/^$2:[A-Z]*=//p" "$root/build/$1/CMakeCache.txt" 2>/dev/null
}

# configure <preset>: what it says is shown only where it fails. A folder for this machine that is made here is to be
# built as a whole, which is quickest with several sources compiled as one; where somebody works in it, it stays as
# it is.
configure() {
  local log=$root/build/configure-$1.log options=() several
  if [[ $1 == native ]]; then
    several=$(cached native CMAKE_UNITY_BUILD)
    options=(-DCMAKE_UNITY_BUILD="${several:-ON}")
  fi
  mkdir -p "$root/build"
  (cd "$root" && cmake --preset "$1" "${options[@]}") >"$log" 2>&1 || {
    cat "$log" >&2
    return 1
  }
}

# build <preset> [<target>]: configures and builds, the target or all. Commands that build the same preset at a time
# wait for each other.
build() {
  mkdir -p "$root/build"
  (
    flock 9
    configure "$1" && cd "$root" && cmake --build --preset "$1" ${2:+--target "$2"}
  ) 9>"$root/build/$1.lock"
}

build_web() {
  build web && node "$root/tools/package-web.mjs"
}
