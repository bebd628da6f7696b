# shellcheck shell=bash
# What scripts/demo --puerta shows. Sourced, not run: it uses start_printer, stop_printer, settings and $build, $shop.
# shellcheck disable=SC2154

door=
door_port=${KESTRA_PUERTA_PORT:-8470}
door_url=http://127.0.0.1:$door_port

start_door() {
  settings TF
  mkdir -p "$shop/caja1"
  sed -e '/^;\?ModoSeguro=/d; /^;\?Diario=/d; /^;\?PacienciaSegura=/d; /^;\?Transliterar=/d' "$shop/Fiscal.ini" >"$shop/caja1/Fiscal.ini"
  printf '\nModoSeguro=1\nDiario=diario.txt\nPacienciaSegura=3\nTransliterar=1\n' >>"$shop/caja1/Fiscal.ini"
  cat >"$shop/puerta.json" <<END
{"escuchar": {"puerto": $door_port}, "datos": "datos", "caja_web": "$PWD/hosts/web",
 "impresoras": [{"id": "caja1", "carpeta": "caja1"}]}
END
  "$build/bin/kestra-puerta" --configuracion "$shop/puerta.json" 2>"$shop/puerta.txt" &
  door=$!
  until curl -s -o /dev/null "$door_url/salud"; do
    kill -0 "$door" 2>/dev/null || {
      cat "$shop/puerta.txt" >&2
      exit 1
    }
    sleep 0.1
  done
}

stop_door() {
  [ -n "$door" ] || return 0
  kill "$door" 2>/dev/null || true
  wait "$door" 2>/dev/null || true
  door=
}

# door_sale KEY WORDS: sells one thing under that key and shows the answer.
door_sale() {
  printf '\n   POST /v1/impresoras/caja1/comprobantes   Idempotency-Key: %s   (%s)\n   ' "$1" "$2"
  curl -s -w '   -> %{http_code}\n' "$door_url/v1/impresoras/caja1/comprobantes" \
    -H 'Content-Type: application/json' -H "Idempotency-Key: $1" -d "{\"tipo\": \"factura\", \"letra\": \"B\",
    \"renglones\": [{\"descripcion\": \"$2\", \"cantidad\": \"2\", \"precio\": \"1500.00\", \"iva\": \"21\"}],
    \"pagos\": [{\"descripcion\": \"Efectivo\", \"monto\": \"5000\"}], \"total\": \"3000.00\"}"
}

# door_state TEXT: waits until the printer's state has that text, and shows it.
door_state() {
  local state
  for _ in $(seq 200); do
    state=$(curl -s "$door_url/v1/impresoras/caja1/estado")
    [[ "$state" != *"$1"* ]] || break
    sleep 0.1
  done
  printf '\n   GET /v1/impresoras/caja1/estado\n   %s\n' "$state"
  [[ "$state" == *"$1"* ]]
}

door_day() {
  local printer_options=(--familia TF --memoria "$shop/memoria.db")
  start_printer "${printer_options[@]}" --papel "$shop/papel-1.txt"
  start_door
  printf '\n-- The door serves the printer ----------------------------------------\n\n'
  printf '   The till in the browser:  %s/caja/\n   What it may be asked:     %s/documentacion\n   How it is:                %s/\n' \
    "$door_url" "$door_url" "$door_url"
  door_state '"contesta":true'

  printf '\n-- A sale, and the same request again: one paper, the same number ------\n'
  door_sale demo-venta-1 'Tostado natural'
  door_sale demo-venta-1 'Tostado natural'

  printf '\n-- The cable is pulled -------------------------------------------------\n'
  stop_printer
  rm -f "$shop/impresora"
  door_state '"contesta":false'
  door_sale demo-venta-2 'Cafe molido'

  printf '\n-- It is put back ------------------------------------------------------\n'
  start_printer "${printer_options[@]}" --papel "$shop/papel-2.txt"
  door_state '"contesta":true'
  door_sale demo-venta-2 'Cafe molido'
  door_sale demo-venta-3 'Yerba mate'

  if [ -t 0 ] && [ -t 1 ]; then
    printf '\n   The till in the browser sells at %s/caja/ until you press Enter.\n' "$door_url"
    read -r
  fi
  printf '\n-- The paper -----------------------------------------------------------\n\n'
  stop_door
  stop_printer
  cat "$shop"/papel-?.txt | grep -E 'TIQUE|Nº 0000[^ ]*$|Tostado|Cafe|Yerba|T O T A L'
}
