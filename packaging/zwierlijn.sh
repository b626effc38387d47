#!/bin/bash
# zwierlijn: starts the editor from a program directory of the user's own.
#
# The editor keeps its settings file, its undo history and its wavelet tables in the directory of
# its executable, which it finds from the executable itself. An installation directory is shared
# and read-only, so each user gets ${XDG_DATA_HOME:-$HOME/.local/share}/zwierlijn/ with
#   zwierlijn-editor  a copy of the installed editor (a link would lead it back to the shared
#                     directory), made again whenever the installed one has changed;
#   Wavelet           a link to the installed tables, which the editor only reads;
#   zwierlijn         the default settings, copied once: after that they are the user's own.
# The editor makes "undoredo" there itself.
#
# Every file is written under a temporary name and renamed, so an interrupted start never leaves
# half an executable behind, and an editor still running keeps the file it started from. Any
# failure ends with one line on stderr and status 1.
set -u

fout() {
    printf 'zwierlijn: %s\n' "$1" >&2
    exit 1
}

# The installed directory lies beside bin, wherever the prefix is: lib/zwierlijn.
zelf=$(readlink -f -- "$0") || fout "kan de plaats van het programma niet bepalen"
gedeeld=$(dirname -- "$(dirname -- "$zelf")")/lib/zwierlijn
editor=zwierlijn-editor
if [ ! -f "$gedeeld/$editor" ] || [ ! -x "$gedeeld/$editor" ]; then
    fout "de editor $gedeeld/$editor is niet geïnstalleerd"
fi

# Relative values of XDG_DATA_HOME are to be ignored.
case ${XDG_DATA_HOME:-} in
    /*) data=$XDG_DATA_HOME ;;
    *)
        case ${HOME:-} in
            /*) data=$HOME/.local/share ;;
            *) fout "HOME is niet gezet: er is geen map voor de eigen programmamap" ;;
        esac
        ;;
esac
eigen=$data/zwierlijn
if ! mkdir -p -- "$eigen" 2>/dev/null || [ ! -w "$eigen" ]; then
    fout "kan de programmamap $eigen niet maken of er niet in schrijven"
fi

# kopieer BRON DOEL: DOEL appears whole or not at all. The copy keeps the source's time, so that
# any other installed version, older or newer, differs from it.
kopieer() {
    tijdelijk=$(dirname -- "$2")/.$(basename -- "$2").$$
    if ! cp -p -- "$1" "$tijdelijk" 2>/dev/null || ! mv -f -- "$tijdelijk" "$2" 2>/dev/null; then
        rm -f -- "$tijdelijk"
        fout "kan $1 niet naar $2 kopiëren"
    fi
}

if [ ! -f "$eigen/$editor" ] || [ "$gedeeld/$editor" -nt "$eigen/$editor" ] ||
    [ "$gedeeld/$editor" -ot "$eigen/$editor" ]; then
    kopieer "$gedeeld/$editor" "$eigen/$editor"
fi

# A directory of tables the user put there is theirs; a link is renewed when it leads elsewhere.
if [ -L "$eigen/Wavelet" ] || [ ! -e "$eigen/Wavelet" ]; then
    if [ "$(readlink -- "$eigen/Wavelet")" != "$gedeeld/Wavelet" ]; then
        tijdelijk=$eigen/.Wavelet.$$
        if ! ln -sf -- "$gedeeld/Wavelet" "$tijdelijk" 2>/dev/null ||
            ! mv -fT -- "$tijdelijk" "$eigen/Wavelet" 2>/dev/null; then
            rm -f -- "$tijdelijk"
            fout "kan geen koppeling $eigen/Wavelet naar de tabellen maken"
        fi
    fi
fi

# Without installed defaults the editor makes its own settings and asks for them at the start.
if [ ! -e "$eigen/zwierlijn" ] && [ ! -L "$eigen/zwierlijn" ] && [ -f "$gedeeld/zwierlijn" ]; then
    kopieer "$gedeeld/zwierlijn" "$eigen/zwierlijn"
fi

# A home on a file system mounted without the right to execute cannot hold the copy.
if [ ! -x "$eigen/$editor" ]; then
    fout "kan $eigen/$editor niet starten: mag er in $data niets uitgevoerd worden?"
fi
exec "$eigen/$editor" "$@"
