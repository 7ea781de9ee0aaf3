#!/usr/bin/env bash
# Tests the Linux DVB driver without an aerial: boots Debian's kernel under qemu with the kernel's
# virtual DVB device (vidtv) and lets tessaview3-scan read it.
#
#   usage: tools/dvb-vm/run.sh [--kvm] [--show] [SCENARIO...]
#          tools/dvb-vm/run.sh [--kvm] --shell
#
# Runs the scenarios of that name in tools/dvb-vm/scenarios, or all. What each printed stays in
# build/dvb-vm/results; --show prints it too. --shell opens a shell in the machine instead. The
# processor is emulated, so that it runs the same everywhere; --kvm uses the one that is there.
#
# Exit status: 0 all passed, 1 something failed, 2 wrong usage, 77 skipped, since qemu or the
# kernel's packages cannot be had.
set -euo pipefail
here=$(cd "$(dirname "$0")/../.." && pwd)
. "$here/tools/packages.sh"

machine=$here/tools/dvb-vm
work=$here/build/dvb-vm
program=$here/build/release
results=$work/results
components=(satlist linuxdvb capture)
conversions=/usr/lib/x86_64-linux-gnu/gconv # of iconv; texts are in ISO/IEC 8859-15
boot_limit=200 # seconds, more than all scenarios take
begin=$SECONDS
PATH=$PATH:/usr/sbin:/sbin # depmod and modprobe

usage() {
    sed -n -e 's/^#   usage: /usage: /p' -e 's/^#          tools/       tools/p' "$0" >&2
    exit 2
}

fail() {
    echo "dvb-vm: $*" >&2
    exit 1
}

skip() {
    echo "dvb-vm: skipped: $*"
    exit 77
}

# package_version PACKAGE: of what is installed.
package_version() { dpkg-query -W -f='${Version}' "$1" 2>/dev/null; }

# Sets release and version to those of the kernel that the installed headers are for.
find_kernel() {
    release=$(dpkg-query -W -f='${Depends}' linux-headers-amd64 |
        sed -n 's/^.*linux-headers-\([0-9][^ ,]*\).*$/\1/p')
    version=$(package_version "linux-headers-$release") ||
        skip "the package linux-headers-$release is missing"
    [ "$(package_version linux-source-6.1)" = "$version" ] ||
        skip "the packages linux-headers-$release and linux-source-6.1 differ in version; upgrade them"
    kernel=$work/kernel-$version-$({
        declare -f unpack_kernel build_vidtv
        cat "$machine/vidtv_nit.h"
    } | cksum | cut -d ' ' -f 1)
}

# The kernel and its modules for media, from the package, which is not installed.
unpack_kernel() {
    local folder=$1 package
    (cd "$folder" && quietly apt-get download "linux-image-$release=$version") ||
        skip "the package linux-image-$release $version cannot be had"
    package=$(echo "$folder"/linux-image-*.deb)
    dpkg-deb --fsys-tarfile "$package" |
        tar -x -C "$folder" --wildcards "./boot/vmlinuz-$release" "./lib/modules/$release/modules.*" \
            "./lib/modules/$release/kernel/drivers/media/*"
    rm "$package"
}

# The modules of vidtv, which Debian does not build, out of the packaged source with an addition.
build_vidtv() {
    local folder=$1 vidtv=$1/drivers/media/test-drivers/vidtv
    tar -x -C "$folder" -f /usr/src/linux-source-6.1.tar.xz --strip-components=1 \
        linux-source-6.1/drivers/media/test-drivers/vidtv
    cp "$machine/vidtv_nit.h" "$vidtv"
    change "$vidtv/vidtv_psi.c" '/^struct vidtv_psi_desc_service \*vidtv_psi_service_desc_init/i #include "vidtv_nit.h"'
    change "$vidtv/vidtv_psi.c" 's/^.*(&t->bitfield, desc_loop_len, 12);/& transport_loop_len += signalled_length(desc_loop_len);/'
    change "$vidtv/vidtv_psi.c" 's/^.*nit->transport = transport;/& add_delivery_system(transport->descriptor);/'
    quietly make -C "/usr/src/linux-headers-$release" "M=$vidtv" CONFIG_DVB_VIDTV=m modules
    install -D -t "$folder/lib/modules/$release/extra" "$vidtv"/*.ko
    depmod -b "$folder" "$release"
}

# change FILE COMMAND: edits it with sed, which has to find its place.
change() {
    sed "$2" "$1" >"$1.new"
    if cmp -s "$1" "$1.new"; then
        fail "the source of vidtv is not as expected: nothing to change with $2"
    fi
    mv "$1.new" "$1"
}

make_kernel() {
    [ ! -d "$kernel" ] || return 0
    echo "dvb-vm: fetching kernel $version and building vidtv for it"
    rm -rf "$work/kernel.new" "$work"/kernel-*
    mkdir -p "$work/kernel.new"
    unpack_kernel "$work/kernel.new"
    build_vidtv "$work/kernel.new"
    mv "$work/kernel.new" "$kernel"
}

# libraries FILE...: the shared libraries they need, and the one that loads them.
libraries() {
    local output
    output=$(ldd "$@")
    if grep 'not found' <<<"$output" >&2; then
        fail "a library is missing"
    fi
    sed -n -e 's/^.*=> \(\/[^ ]*\) (0x.*$/\1/p' -e 's/^\s*\(\/[^ ]*\) (0x.*$/\1/p' <<<"$output" | sort -u
}

# Modules in the order in which they are to be loaded, by their place in the machine.
module_order() {
    local module
    for module in dvb_vidtv_tuner dvb_vidtv_demod dvb_vidtv_bridge; do
        modprobe -d "$kernel" -S "$release" --show-depends "$module"
    done | sed -n "s|^insmod \($kernel\)\?/*\(lib[^ ]*\).*$|/\2|p" | awk '!seen[$0]++'
}

# The machine's file system: busybox, the modules, and the program as it is installed, without
# the libraries that open windows.
make_initramfs() {
    local root=$work/root file library=lib/tessaview3/components
    rm -rf "$root"
    mkdir -p "$root"/{bin,dev,etc,proc,sys,tmp,root,"opt/$library",opt/bin,results}
    cp /bin/busybox "$root/bin"
    module_order >"$root/etc/modules"
    while read -r file; do
        install -D -m 644 "$kernel$file" "$root$file"
    done <"$root/etc/modules"
    cp "$program/bin/tessaview3-scan" "$root/opt/bin"
    cp "$program/bin/dvb_vm_record" "$root/opt/bin/record"
    cp "$program"/lib/*.so* "$root/opt/lib"
    for file in "${components[@]}"; do
        cp "$program/$library/$file".{component,so} "$root/opt/$library"
    done
    libraries "$root"/opt/bin/* "$root/opt/$library"/*.so | grep -v "^$root" |
        while read -r file; do
            install -D "$file" "$root$file"
        done
    install -D -t "$root$conversions" "$conversions"/{gconv-modules.cache,ISO8859-15.so,UTF-32.so}
    cp "$machine/init" "$machine/guest.sh" "$root/"
    cp -r "$machine/scenarios" "$root/"
    printf '%s\n' "${scenarios[@]}" >"$root/etc/scenarios"
    (cd "$root" && find . -print0 | cpio --null --create --format=newc --owner=0:0 --quiet) >"$work/initramfs"
}

# boot LIMIT APPEND OPTION...: the machine, until it switches itself off, LIMIT seconds at most, 0
# for any time.
boot() {
    local limit=$1 append=$2
    shift 2
    timeout --foreground "$limit" qemu-system-x86_64 -machine pc -accel "$accelerator" -cpu max \
        -smp 2 -m 1024 -nodefaults -no-user-config -display none -no-reboot \
        -rtc base=2024-01-31T12:34:56 -kernel "$kernel/boot/vmlinuz-$release" \
        -initrd "$work/initramfs" -append "console=ttyS0 quiet panic=-1 $append" "$@"
}

# The lines of standard input that are no comments.
without_comments() { sed -e '/^#/d' -e '/^$/d'; }

# in_order PATTERNS TEXT: each line of the first file is a pattern that has to match a line of
# the second, after that of the pattern before.
in_order() {
    without_comments <"$1" | awk '
        NR == FNR { pattern[NR] = $0; count = NR; next }
        next_one < count && $0 ~ pattern[next_one + 1] { ++next_one }
        END {
            if (next_one < count) print "not printed: " pattern[next_one + 1]
            exit next_one < count
        }' - "$2"
}

# passed SCENARIO: whether it came out as expected; prints how it did not.
passed() {
    local name=$1 good=true expected produced
    if ! grep -qsx 0 "$results/$name/status"; then
        echo "the scenario did not come to its end"
        return 1
    fi
    in_order "$machine/scenarios/$name.expected" "$results/$name/transcript" || good=false
    for expected in "$machine/scenarios/$name".*.tree; do
        [ -f "$expected" ] || continue
        produced=$results/$name/${expected##*/"$name".}
        diff -u --label expected --label printed "$expected" "$produced" || good=false
    done
    $good
}

# show SCENARIO: what it printed.
show() {
    local file
    for file in "$results/$1"/*; do
        [ ! -s "$file" ] || sed "s/^/    ${file##*/} | /" "$file"
    done
}

evaluate() {
    local name failed=() report
    for name in "${scenarios[@]}"; do
        if report=$(passed "$name"); then
            echo "dvb-vm: $name: passed in $(cat "$results/$name/seconds") s"
            ! $verbose || show "$name"
        else
            failed+=("$name")
            echo "dvb-vm: $name: FAILED"
            printf '    %s\n' "${report//$'\n'/$'\n'    }"
            show "$name"
        fi
    done
    if [ ${#failed[@]} -gt 0 ]; then
        tail -n 30 "$work/console"
        fail "${#failed[@]} of ${#scenarios[@]} scenarios failed: ${failed[*]}"
    fi
    echo "dvb-vm: ${#scenarios[@]} scenarios passed in $((SECONDS - begin)) s"
}

accelerator=tcg
verbose=false
shell=false
while [ $# -gt 0 ]; do
    case $1 in
        --kvm) accelerator=kvm ;;
        --show) verbose=true ;;
        --shell) shell=true ;;
        -*) usage ;;
        *) break ;;
    esac
    shift
done
scenarios=("$@")
if [ $# -eq 0 ]; then
    for file in "$machine"/scenarios/*.sh; do
        scenarios+=("$(basename "$file" .sh)")
    done
fi
for name in "${scenarios[@]}"; do
    if ! [ -f "$machine/scenarios/$name.sh" ]; then
        echo "dvb-vm: no scenario is called '$name'" >&2
        exit 2
    fi
done

[ "$(dpkg --print-architecture 2>/dev/null)" = amd64 ] || skip "it needs Debian on amd64"
install_packages "${BUILD_PACKAGES[@]}"
install_packages "${VM_PACKAGES[@]}" || skip "these packages cannot be had: ${VM_PACKAGES[*]}"
find_kernel
make_kernel
echo "dvb-vm: building the program"
(
    cd "$here"
    [ -f "$program/build.ninja" ] || quietly cmake --preset release -DBUILD_TESTING=OFF
    quietly cmake --build --preset release --target tessaview3-scan dvb_vm_record "${components[@]}"
)
make_initramfs
if $shell; then
    boot 0 tessaview.shell -serial mon:stdio
    exit
fi
echo "dvb-vm: booting kernel $release for: ${scenarios[*]}"
rm -rf "$results"
mkdir -p "$results"
boot "$boot_limit" "" -serial "file:$work/console" -serial "file:$work/archive" ||
    echo "dvb-vm: the machine did not switch itself off (status $?)" >&2
tar -x -C "$results" -f "$work/archive" --ignore-zeros || true # what there is of it
evaluate
