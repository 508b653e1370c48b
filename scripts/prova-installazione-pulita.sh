#!/usr/bin/env bash
# Installs the game's Debian package on a fresh Debian 12 (bookworm) made with
# debootstrap, then, as an ordinary user on a 1024x768 Xvfb screen with IceWM,
# opens the start menu on "Coppie vivaci", starts the game from that entry,
# answers the first start's questions, opens a set and turns two tiles, taking
# screenshots along the way.
#
#   sudo bash scripts/prova-installazione-pulita.sh build/coppie-vivaci_1.0.0_amd64.deb [folder]
#
# Everything goes into the folder (default /var/tmp/coppie-vivaci-prova): the
# new system in root/, the logs, and the screenshots in schermate/.
# Needs root, network access to the Debian mirror, debootstrap and util-linux
# (unshare). The clicks are at fixed points of a 1024x768 screen.
set -euo pipefail

deb=${1:?usage: $0 package.deb [folder]}
cartella=${2:-/var/tmp/coppie-vivaci-prova}
[ "$(id -u)" -eq 0 ] || { echo "run as root (debootstrap and chroot need it)" >&2; exit 1; }
[ -f "$deb" ] || { echo "no such package: $deb" >&2; exit 1; }
command -v debootstrap >/dev/null || apt-get install -y debootstrap
deb=$(realpath "$deb")
mkdir -p "$cartella"
cartella=$(realpath "$cartella")
radice=$cartella/root
schermate=$cartella/schermate
nome_deb=$(basename "$deb")

# The Debian mirror this machine's apt uses (override with MIRROR=...).
if [ -z "${MIRROR:-}" ]; then
  MIRROR=$(cat /etc/apt/sources.list.d/*.sources 2>/dev/null |
    awk '/^URIs:/ && $2 ~ /\/debian\/?$/ {print $2; exit}')
  [ -n "$MIRROR" ] || MIRROR=$(awk '/^deb / && $0 ~ / bookworm / {print $2; exit}' /etc/apt/sources.list 2>/dev/null || true)
  [ -n "$MIRROR" ] || MIRROR=http://deb.debian.org/debian
fi

montati=()
smonta() {
  local i
  for ((i = ${#montati[@]} - 1; i >= 0; i--)); do
    umount -R "${montati[i]}" 2>/dev/null || umount -l "${montati[i]}" 2>/dev/null || true
  done
  montati=()
}
trap smonta EXIT
monta() { # monta <kind> <target>
  case $1 in
    proc) mount -t proc proc "$2" ;;
    sys) mount --rbind /sys "$2" && mount --make-rslave "$2" ;;
    *) mount --bind "$1" "$2" ;;
  esac
  montati+=("$2")
}

# A fresh system every time: remove the previous one, never across a mount.
if findmnt -rn -o TARGET | grep -q "^$radice/"; then
  echo "something is still mounted under $radice; unmount it first" >&2; exit 1
fi
rm -rf --one-file-system "$radice" "$schermate"
mkdir -p "$schermate"

echo "== debootstrap bookworm from $MIRROR into $radice"
debootstrap --variant=minbase bookworm "$radice" "$MIRROR" > "$cartella/debootstrap.log" 2>&1 ||
  { tail -20 "$cartella/debootstrap.log"; exit 1; }
suite_sicurezza=$(dirname "$MIRROR")/debian-security
cat > "$radice/etc/apt/sources.list" <<EOF
deb $MIRROR bookworm main
deb $MIRROR bookworm-updates main
deb $suite_sicurezza bookworm-security main
EOF
cp /etc/resolv.conf "$radice/etc/resolv.conf"
printf '#!/bin/sh\nexit 101\n' > "$radice/usr/sbin/policy-rc.d" # no services start
chmod +x "$radice/usr/sbin/policy-rc.d"
monta proc "$radice/proc"
monta sys "$radice/sys"
monta /dev "$radice/dev"
monta /dev/pts "$radice/dev/pts"
cp "$deb" "$radice/tmp/$nome_deb"

dentro() { # a command as root inside the new system
  chroot "$radice" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin:/usr/games HOME=/root \
    DEBIAN_FRONTEND=noninteractive LANG=C.UTF-8 bash -c "$1"
}

echo "== apt-get install ./$nome_deb (dependencies from the mirror)"
dentro "apt-get update && apt-get install -y /tmp/$nome_deb" > "$cartella/installazione.log" 2>&1 ||
  { tail -30 "$cartella/installazione.log"; exit 1; }
grep -E "^(Setting up|Preparing|Unpacking) coppie-vivaci" "$cartella/installazione.log" | sed 's/^/   /'
echo "   $(grep -c '^Setting up' "$cartella/installazione.log") packages set up in all"
dentro "dpkg-query -W -f='   installed: \${Package} \${Version} (\${Status})\n' coppie-vivaci"
for f in /usr/share/applications/it.coppievivaci.CoppieVivaci.desktop \
  /usr/share/icons/hicolor/scalable/apps/coppie-vivaci.svg /usr/games/coppie-vivaci \
  /usr/share/man/man6/coppie-vivaci.6.gz /usr/share/doc/coppie-vivaci/copyright; do
  [ -e "$radice$f" ] || { echo "MISSING: $f" >&2; exit 1; }
  echo "   present: $f"
done
mancanti=$(dentro "ldd /usr/lib/coppie-vivaci/coppie-vivaci | grep 'not found' || true")
[ -z "$mancanti" ] || { echo "libraries not found: $mancanti" >&2; exit 1; }

echo "== only what the demonstration needs: Xvfb, xdotool, ImageMagick, IceWM"
dentro "apt-get install -y --no-install-recommends xvfb xauth xdotool imagemagick icewm" \
  > "$cartella/strumenti.log" 2>&1 || { tail -30 "$cartella/strumenti.log"; exit 1; }
echo "   IceWM's menu from the .desktop files (icewm-menu-fdo):"
dentro "icewm-menu-fdo" | grep -i -B2 -A1 "coppie" | sed 's/^/     /'
dentro "id bimbo >/dev/null 2>&1 || useradd -m -s /bin/bash bimbo"
dentro "find /usr/lib/coppie-vivaci -type f -exec md5sum {} + | sort -k2" > "$cartella/prima.md5"

# The demonstration, run as bimbo. Positions are those of IceWM 3.3 and of the
# game on a 1024x768 screen.
cat > "$radice/tmp/dimostrazione.sh" <<'EOF'
#!/bin/bash
set -u
S=/tmp/schermate
mkdir -p $S
cd ~
foto() { sleep "${2:-0}"; import -window root "$S/$1.png"; echo "   screenshot $1.png"; }
clic() { xdotool mousemove "$1" "$2" click 1; sleep "${3:-1}"; }
finestra() { # waits up to 30 s for a window of the game; prints its id
  local i
  for i in $(seq 60); do
    xdotool search --onlyvisible --name "$1" 2>/dev/null | head -1 | grep . && return 0
    sleep 0.5
  done
  return 1
}
Xvfb :57 -screen 0 1024x768x24 -nolisten tcp > /tmp/xvfb.log 2>&1 &
for i in $(seq 50); do xdotool getdisplaygeometry >/dev/null 2>&1 && break; sleep 0.2; done
icewm-session > /tmp/icewm.log 2>&1 &
sleep 4
# (a) the start menu: Game > BoardGame > Coppie vivaci
clic 25 755
clic 60 570
clic 210 570
foto 01-menu-avvio-giochi
clic 370 570 0
if finestra "Coppie vivaci" >/dev/null; then
  echo "   the game started from the menu entry"
else
  echo "   NO window after the menu entry: starting coppie-vivaci by its command"
  coppie-vivaci > /tmp/gioco.log 2>&1 &
  finestra "Coppie vivaci" >/dev/null || { echo "   the game did not start"; exit 1; }
fi
# (b) first start: the font message, then the question on the ready-made sets
foto 02-primo-avvio-font 4
clic 687 364 3
foto 03-primo-avvio-domanda
# (c) answer NO (right button), the splash, then Avvio and the menu
clic 687 349 2
foto 04-splash
clic 552 628 3
foto 05-menu-insiemi
# (d) animali.agg, Gioca, a name, Gioca, two tiles
clic 617 110
clic 760 267 2
clic 498 315 0.5
xdotool type --delay 80 Luca
foto 06-nome 0.5
clic 642 515 4
foto 07-tavolo
clic 175 146 1.5
clic 399 146 0.8
foto 08-due-tessere
# Back to the menu (Esci, SI), language English, leave (Exit, YES), start again
clic 79 8 3
clic 725 377 2
clic 315 8
clic 340 51 2
foto 09-menu-in-inglese
clic 760 627 2
clic 360 417 3
coppie-vivaci > /tmp/gioco2.log 2>&1 &
finestra "Coppie vivaci" >/dev/null
sleep 4
clic 552 628 3
foto 10-secondo-avvio-menu
clic 760 627 2
clic 360 417 3
EOF
chmod +x "$radice/tmp/dimostrazione.sh"

esito=0
echo "== the demonstration, as the user bimbo (own network and process namespaces)"
# A network namespace of its own keeps this X server apart from any other on
# the machine (X's abstract sockets are per network namespace); a process
# namespace ends every program of the session when the script ends.
timeout 600 unshare --net --pid --fork --kill-child chroot "$radice" runuser -u bimbo -- \
  env -i DISPLAY=:57 LANG=C.UTF-8 HOME=/home/bimbo USER=bimbo LOGNAME=bimbo \
  PATH=/usr/local/bin:/usr/bin:/bin:/usr/local/games:/usr/games bash /tmp/dimostrazione.sh || esito=$?
[ "$esito" -eq 0 ] || echo "   the demonstration ended with an error ($esito)"
cp "$radice"/tmp/schermate/*.png "$schermate/" 2>/dev/null || true
cp "$radice/tmp/icewm.log" "$cartella/sessione.log" 2>/dev/null || true

echo "== after the game"
casa=$radice/home/bimbo
[ -f "$casa/.local/share/fonts/penna1.ttf" ] && echo "   font installed for the user: ~/.local/share/fonts/penna1.ttf"
echo "   sets in the user's data tree: $(ls "$casa/ImpostazioniProgrammiLorea/tesselo/dati/ii" 2>/dev/null | tr '\n' ' ')"
dentro "find /usr/lib/coppie-vivaci -type f -exec md5sum {} + | sort -k2" > "$cartella/dopo.md5"
if cmp -s "$cartella/prima.md5" "$cartella/dopo.md5"; then
  echo "   /usr/lib/coppie-vivaci unchanged by the game"
else
  echo "   /usr/lib/coppie-vivaci CHANGED:"; diff "$cartella/prima.md5" "$cartella/dopo.md5" | sed 's/^/     /'
fi
if grep -rqs "CurrentLanguage=English" "$radice/usr/lib/coppie-vivaci" "$casa"; then
  echo "   the language chosen (English) was saved"
else
  echo "   WARNING: the language chosen (English) was saved nowhere the user can write;" \
    "LangSetting.ini: $(grep -h CurrentLanguage "$radice/usr/lib/coppie-vivaci/LangSetting.ini")"
fi
smonta
echo "== screenshots in $schermate:"
ls -1 "$schermate" | sed 's/^/   /'
exit "$esito"
