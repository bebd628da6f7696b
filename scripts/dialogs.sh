# shellcheck shell=bash
# Shows every dialog of Kestra.dll as an operator meets it, and takes a picture of each. Sourced, not run, by
# scripts that have a Wine up.
# shellcheck source=scripts/wine.sh
. scripts/wine.sh

# name of the picture, caption of the window, till, option of the printer (or callada, which says nothing),
# setting, keys that lead there
dialog_scenes=(
  "confirmacion|Envia\?|ticket||MostrarComandos=1|"
  "trama|^ticket|ticket||MostrarComandos=1|y"
  "respuestas|^ticket|ticket||MostrarRespuestas=1|"
  "sin_respuesta|Error !|ticket|callada||"
  "informe_estados|Error al ejecutar comando fiscal|ticket|--sin-papel||"
  "memoria_llena|ATENCI|jornada|--cierres-restantes=20|TipoComprobante=TF|"
)

# take_dialog_pictures PRINTER SHOP PICTURES: the shop's folder holds the tills, Kestra.dll and the Fiscal.ini to
# start from. Every scene has a printer and a till of its own.
take_dialog_pictures() {
  local scene failed=0
  mkdir -p "$3"
  for scene in "${dialog_scenes[@]}"; do
    take_dialog_picture "$1" "$2" "$3" "$scene" || failed=1
  done
  return "$failed"
}

take_dialog_picture() {
  local name caption till option setting keys family=TQ silent=no printer_pid till_pid status=0
  IFS='|' read -r name caption till option setting keys <<<"$4"
  [ "$till" = ticket ] || family=TF
  [ "$option" != callada ] || silent=yes option=
  cp "$2/Fiscal.ini" "$2/Fiscal.before"
  [ -z "$setting" ] || sed -i "s|^${setting%%=*}=.*|$setting|" "$2/Fiscal.ini"
  "$1" --familia $family --enlace "$2/escena" --papel "$2/escena.txt" ${option:+"$option"} >/dev/null &
  printer_pid=$!
  wine_wait_for "the virtual printer" "$printer_pid" test -e "$2/escena" || return 1
  [ "$silent" = no ] || kill -STOP "$printer_pid"
  wine_com 21 "$2/escena"
  sed -i "s|^;*ImpresoraDispositivo=.*|ImpresoraDispositivo=COM21|" "$2/Fiscal.ini"
  (cd "$2" && exec timeout 60 "$wine32" "$till.exe" >/dev/null 2>&1) &
  till_pid=$!
  if see_dialog "$caption" "$keys" "$till_pid"; then
    import -window root png:- | convert png:- -trim +repage "$3/$name.png"
  else
    echo "The dialog $name did not show." >&2
    status=1
  fi
  kill -CONT "$printer_pid"
  kill "$till_pid" "$printer_pid" 2>/dev/null || true
  wait "$till_pid" "$printer_pid" 2>/dev/null || true
  end_till "$till"
  mv "$2/Fiscal.before" "$2/Fiscal.ini"
  return "$status"
}

# see_dialog CAPTION KEYS PROCESS: the window that shows once the keys have answered those before it.
see_dialog() {
  local key
  for key in $2; do
    wine_wait_for "a dialog" "$3" xdotool search --onlyvisible --name . >/dev/null || return 1
    sleep 0.5
    xdotool key "$key"
    sleep 0.5
  done
  wine_wait_for "the dialog" "$3" xdotool search --onlyvisible --name "$1" >/dev/null || return 1
  sleep 0.5
}

# end_till NAME: a till that waits at a dialog goes on when only its starter is ended.
end_till() {
  "$wine32" taskkill /f /im "$1.exe" >/dev/null 2>&1 || true
}
