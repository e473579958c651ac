# Sourced by the scripts that try Quillmarsh in a fresh root of a Debian release. It needs root,
# debootstrap, a mirror (MIRROR) and room below TMPDIR; the root has mounts and processes of its own,
# and whatever happens, they end with the script. ROOTS=DIRECTORY keeps the bare roots for later runs.

here=$(cd "$(dirname "$0")/../.." && pwd)
[ "$(id -u)" = 0 ] || { echo "$0: skipped: needs root" >&2; exit 77; }
command -v debootstrap >/dev/null || { echo "$0: skipped: debootstrap is not installed" >&2; exit 77; }

if [ -z "${FRESH_ROOT-}" ]; then
    FRESH_ROOT=$(mktemp -d "${TMPDIR:-/tmp}/quillmarsh-root-XXXXXX")
    export FRESH_ROOT
    trap 'rm -rf --one-file-system "$FRESH_ROOT"' EXIT
    unshare --mount --pid --fork --kill-child "$0" "$@" && exit 0 || exit $?
fi
root=$FRESH_ROOT/root
log=$FRESH_ROOT/log

quietly() { "$@" >"$log" 2>&1 || { tail -30 "$log" >&2; exit 1; }; }
inside() { chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 HOME=/root \
    DEBIAN_FRONTEND=noninteractive "$@"; }
get() { quietly inside apt-get -y --no-install-recommends "$@"; }
# As a person would, in a home directory: as_user 'SHELL COMMAND'
as_user() { chroot "$root" setpriv --reuid=marsh --regid=marsh --init-groups env -i \
    PATH=/usr/bin:/bin HOME=/home/marsh LC_ALL=C.UTF-8 sh -c "cd && $1"; }

make_root() { # 12|13
    case $1 in
    12) suite=bookworm ;;
    13) suite=trixie ;;
    *) echo "$0: no release $1; 12 or 13" >&2; exit 2 ;;
    esac
    echo "== a fresh root of Debian $1"
    bare=${ROOTS:-$FRESH_ROOT}/$suite
    [ -d "$bare" ] ||
        quietly debootstrap --variant=minbase "$suite" "$bare" "${MIRROR:-http://deb.debian.org/debian}"
    cp -a "$bare" "$root"
    mount -t proc proc "$root/proc"
    mount --rbind /dev "$root/dev"
    mount -t tmpfs tmpfs "$root/tmp"
    cp /etc/resolv.conf /etc/hosts "$root/etc/"
    # Whatever this machine calls itself, sudo wants to resolve it.
    echo "127.0.0.1 $(hostname)" >>"$root/etc/hosts"
    # What the mirror needs of the outer system, if anything; nobody is there to be asked about it.
    cp -n /etc/apt/apt.conf.d/* "$root/etc/apt/apt.conf.d/"
    echo 'Dpkg::Options { "--force-confold"; };' >"$root/etc/apt/apt.conf.d/99fresh-root"
    get update
    inside useradd --create-home --shell /bin/sh marsh
}
