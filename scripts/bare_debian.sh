# Bare systems of Debian, fetched as this machine's own apt fetches packages: same mirror, same settings. Sourced by the
# scripts that run something in one.

# Says why this machine cannot run one; nothing if it can.
why_no_bare_debian() {
    [ "$(id -u)" -eq 0 ] || { echo "this needs root"; return; }
    chroot / true 2>/dev/null || { echo "this system does not let a process change its root"; return; }
    local folder
    folder=$(mktemp -d)
    if ! { mknod -m 666 "$folder/null" c 1 3 && : >"$folder/null"; } 2>/dev/null; then
        echo "this system does not let a process make device files"
    fi
    rm -rf "$folder"
}

mirror_of_debian() {
    apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Origin: Debian' 'Label: Debian' | sed -n 1p
}

# Puts the release, such as bookworm, into a folder, unless it is there.
fetch_bare_debian() {
    local release=$1 folder=$2 mirror settings proxy
    if [ ! -e "$folder/complete" ]; then
        mirror=$(mirror_of_debian)
        settings=$(apt-config dump --format '%F "%v";%n' Acquire)
        proxy=$(sed -n 's/^Acquire::http::Proxy "\(.*\)";$/\1/p' <<<"$settings")
        rm -rf "$folder"
        env ${proxy:+http_proxy="$proxy"} debootstrap --variant=minbase "$release" "$folder" ${mirror:+"$mirror"} \
            >build/debootstrap.log 2>&1 || { tail -n 5 build/debootstrap.log >&2; return 1; }
        echo "$settings" >"$folder/etc/apt/apt.conf.d/90host"
        touch "$folder/complete"
    fi
    cp /etc/resolv.conf "$folder/etc/resolv.conf"
}

# Runs a command in the system in a folder.
in_bare_debian() {
    local folder=$1
    shift
    chroot "$folder" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"
}
