#!/bin/bash
# The installation as the desktop, a file manager and a student's shell find it.
#
#   packaging_test.sh installeer BUILD ROOT   cmake --install BUILD with ROOT as DESTDIR
#   packaging_test.sh TEST ROOT PREFIX         one of: lanceerder bureaublad miniatuur
set -euo pipefail

fail() {
    echo "FOUT: $*" >&2
    exit 1
}

t=$(mktemp -d)
trap 'chmod -R u+w "$t"; rm -rf "$t"' EXIT

installeer() {
    rm -rf "$2"
    DESTDIR=$2 cmake --install "$1" >/dev/null
}

# A stand-in editor under a fake, read-only prefix: it tells its version, the directory it finds
# from its own executable, as the real one does, and its arguments.
nep_editor() {
    printf '#!/bin/sh\necho "%s $(dirname "$(readlink -f "$0")")" "$(printf "<%%s>" "$@")"\n' "$1" \
        >"$p/lib/zwierlijn/zwierlijn-editor"
    chmod 555 "$p/lib/zwierlijn/zwierlijn-editor"
    touch -d "$2" "$p/lib/zwierlijn/zwierlijn-editor"
}

lanceerder() {
    p=$t/prefix
    mkdir -p "$p/bin" "$p/lib/zwierlijn/Wavelet"
    cp "$1/bin/zwierlijn" "$p/bin/"
    echo standaard >"$p/lib/zwierlijn/zwierlijn"
    nep_editor v1 "-1 hour"
    chmod -R a-w "$p"
    # Root may write anyway: what the launcher left under the prefix is compared as well.
    local voor
    voor=$(find "$p" -printf '%p %T@ %s %m\n' | sort)
    local eigen=$t/home/.local/share/zwierlijn
    start() { env -u XDG_DATA_HOME HOME="$t/home" "$p/bin/zwierlijn" "$@"; }

    [ "$(start a 'b c')" = "v1 $eigen <a><b c>" ] || fail "eerste start: $(start a 'b c')"
    [ "$(readlink "$eigen/Wavelet")" = "$p/lib/zwierlijn/Wavelet" ] || fail "Wavelet niet gekoppeld"
    [ "$(cat "$eigen/zwierlijn")" = standaard ] || fail "standaardinstellingen niet gekopieerd"
    echo eigen >"$eigen/zwierlijn"
    local kopie
    kopie=$(stat -c %i "$eigen/zwierlijn-editor")
    [ "$(start)" = "v1 $eigen <>" ] || fail "tweede start: $(start)"
    [ "$(stat -c %i "$eigen/zwierlijn-editor")" = "$kopie" ] || fail "kopie zonder reden vernieuwd"
    [ "$(cat "$eigen/zwierlijn")" = eigen ] || fail "eigen instellingen overschreven"
    [ "$(ls -A "$eigen")" = $'Wavelet\nzwierlijn\nzwierlijn-editor' ] || fail "$(ls -A "$eigen")"
    [ "$(find "$p" -printf '%p %T@ %s %m\n' | sort)" = "$voor" ] || fail "prefix veranderd"

    # A package installs its files with the time they were built: older than the copy, or newer.
    local versie tijd
    for versie in "v2 +1 hour" "v3 -1 day"; do
        read -r versie tijd <<<"$versie"
        chmod u+w "$p/lib/zwierlijn"
        nep_editor "$versie" "$tijd"
        [ "$(start)" = "$versie $eigen <>" ] || fail "na $versie: $(start)"
    done

    [ "$(XDG_DATA_HOME=$t/data "$p/bin/zwierlijn")" = "v3 $t/data/zwierlijn <>" ] ||
        fail "XDG_DATA_HOME niet gevolgd"
    touch "$t/bestand"
    local uit fout
    uit=$(XDG_DATA_HOME=$t/bestand "$p/bin/zwierlijn" 2>"$t/fout") && fail "start zonder map gelukt"
    fout=$(cat "$t/fout")
    [ -z "$uit" ] && [[ $fout == "zwierlijn: kan de programmamap $t/bestand/zwierlijn niet"* ]] &&
        [ "$(wc -l <"$t/fout")" -eq 1 ] || fail "melding zonder map: $fout"
}

bureaublad() {
    local share=$1/share desktop=$1/share/applications/zwierlijn.desktop
    [ -z "$(desktop-file-validate "$desktop" 2>&1)" ] || fail "$(desktop-file-validate "$desktop")"
    [ -x "$1/bin/$(sed -n 's/^Exec=//p' "$desktop")" ] || fail "Exec niet geïnstalleerd"
    xmllint --noout "$share/icons/hicolor/scalable/apps/$(sed -n 's/^Icon=//p' "$desktop").svg"
    local info=$share/metainfo/nl.zwierlijn.zwierlijn.metainfo.xml
    appstreamcli validate --pedantic --no-net "$info" >"$t/appstream" 2>&1 ||
        fail "appstreamcli: $(cat "$t/appstream")"
    grep -q "<launchable type=\"desktop-id\">zwierlijn.desktop</launchable>" "$info" ||
        fail "de metainfo wijst niet naar zwierlijn.desktop"

    # Debian ships no schema of shared-mime-info: its own compiler reads the file as the desktop
    # will, and says nothing when all is well.
    mkdir -p "$t/mime/packages"
    cp "$share/mime/packages/zwierlijn.xml" "$t/mime/packages/"
    local melding
    melding=$(XDG_DATA_HOME=$t update-mime-database "$t/mime" 2>&1)
    [ -z "$melding" ] || fail "update-mime-database: $melding"
    grep -qx "50:application/x-zwierlijn:\*\.zwl" "$t/mime/globs2" || fail "geen glob *.zwl"
    grep -q "<comment>Zwierlijn-kromme</comment>" "$t/mime/application/x-zwierlijn.xml" ||
        fail "geen omschrijving Zwierlijn-kromme"
}

# The thumbnailer's line as a file manager runs it, with its own names for input and output.
miniatuur() {
    local entry=$1/share/thumbnailers/zwierlijn.thumbnailer root=$2 grootte arg
    grep -qx "MimeType=application/x-zwierlijn;" "$entry" || fail "ander type dan *.zwl"
    for grootte in 128 256; do
        local opdracht=()
        for arg in $(sed -n 's/^Exec=//p' "$entry"); do
            arg=${arg//%i/$(dirname "$0")/../../docs/voorbeeld.zwl}
            arg=${arg//%o/$t/miniatuur-$grootte}
            opdracht+=("${arg//%s/$grootte}")
        done
        opdracht[0]=$root${opdracht[0]}
        "${opdracht[@]}"
        # The PNG's signature, then its width and height from the header.
        local kop
        read -r -a kop <<<"$(od -An -tu1 -N24 "$t/miniatuur-$grootte" | tr '\n' ' ')"
        [ "${kop[*]:0:8}" = "137 80 78 71 13 10 26 10" ] || fail "geen PNG"
        local b=$((kop[18] * 256 + kop[19])) h=$((kop[22] * 256 + kop[23]))
        [ "$b" -eq "$grootte" ] && [ "$h" -gt 0 ] && [ "$h" -le "$grootte" ] ||
            fail "miniatuur van ${b}x$h voor $grootte"
    done
}

case $1 in
    installeer) installeer "$2" "$3" ;;
    lanceerder | bureaublad | miniatuur) "$1" "$2$3" "$2" ;;
    *) fail "onbekende test $1" ;;
esac
