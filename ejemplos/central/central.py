#!/usr/bin/env python3
"""Escribe en PostgreSQL lo que publican las puertas de una cadena.

    central.py --mqtt SERVIDOR[:PUERTO] --base "host=... dbname=..."

Un suceso se confirma al servidor MQTT cuando está en la base, y recién entonces se le acusa recibo a la puerta: si este
programa, la base o el servidor mueren en el medio, vuelve a llegar. Lo repetido no se escribe de nuevo.
"""
import argparse
import json
import pathlib
import sys
import time

import paho.mqtt.client as mqtt
import psycopg2
import psycopg2.extras
from paho.mqtt.packettypes import PacketTypes

TIPOS = ("documento", "cierre", "estado", "alarma")
ESQUEMA = "kestra.puerta/1"
LOTE = 500          # sucesos por transacción, a lo sumo
PAUSA = 2           # segundos hasta volver a intentar
SESION = 30 * 86400  # cuánto guarda el servidor lo que no se leyó

INSERTA = """
insert into sucesos (clave, local, impresora, secuencia, tipo, momento, datos) values %s
on conflict (clave) do nothing
"""


RECHAZA = "insert into rechazados (tema, mensaje, motivo) values (%s, %s, %s)"


def fila(mensaje):
    """Los campos de un suceso. ValueError, KeyError o TypeError si no es de los nuestros."""
    m = json.loads(mensaje.payload)
    if m["esquema"] != ESQUEMA:
        raise ValueError(f"esquema {m['esquema']}")
    return (m["clave"], m["local"], m["impresora"], int(m["secuencia"]), m["tipo"], m["momento"],
            json.dumps(m["datos"]))


class Cliente(mqtt.Client):
    """Uno que no confirma lo que recibe hasta que se le diga."""

    def __init__(self, *palabras, **opciones):
        super().__init__(*palabras, **opciones)
        self.sin_confirmar = []

    # paho confirma al volver de on_message; acá se confirma detrás de la base.
    def _send_puback(self, mid):
        self.sin_confirmar.append(mid)
        return mqtt.MQTT_ERR_SUCCESS

    def confirmar(self):
        for mid in self.sin_confirmar:
            super()._send_puback(mid)
        self.sin_confirmar = []


class Central:
    def __init__(self, opciones):
        self.opciones = opciones
        self.base = None
        self.lote = []
        self.cliente = None
        self.conectado = False

    # ---- La base ----

    def abrir_base(self):
        self.base = psycopg2.connect(self.opciones.base)
        with self.base, self.base.cursor() as cursor:
            cursor.execute((pathlib.Path(__file__).parent / "schema.sql").read_text(encoding="utf-8"))

    def escribir(self):
        """El lote, en una transacción; después la confirmación y los acuses."""
        try:
            with self.base, self.base.cursor() as cursor:
                filas = [fila(mensaje) for mensaje in self.lote]
                psycopg2.extras.execute_values(cursor, INSERTA, filas, page_size=LOTE)
        except (ValueError, KeyError, TypeError, psycopg2.DataError):
            filas = [f for f in map(self.escribir_uno, self.lote) if f]
        self.cliente.confirmar()
        self.acusar(filas)
        self.lote = []

    def escribir_uno(self, mensaje):
        """Uno malo no detiene a los demás: queda aparte, con su motivo."""
        try:
            una = fila(mensaje)
            with self.base, self.base.cursor() as cursor:
                psycopg2.extras.execute_values(cursor, INSERTA, [una])
            return una
        except (ValueError, KeyError, TypeError, psycopg2.DataError) as falla:
            motivo = f"{type(falla).__name__}: {falla}".strip()
            with self.base, self.base.cursor() as cursor:
                cursor.execute(RECHAZA, (mensaje.topic, mensaje.payload, motivo))
            return None

    def acusar(self, filas):
        por_impresora = {}
        for clave, local, impresora, *_ in filas:
            por_impresora.setdefault((local, impresora), []).append(clave)
        for (local, impresora), claves in por_impresora.items():
            tema = f"{self.opciones.prefijo}/v1/{local}/{impresora}/acuse"
            self.cliente.publish(tema, json.dumps({"claves": claves}), qos=1)

    # ---- El servidor MQTT ----

    def conectar(self):
        cliente = Cliente(client_id=self.opciones.identificacion, protocol=mqtt.MQTTv5)
        cliente.on_connect = self.al_conectar
        cliente.on_disconnect = self.al_cortarse
        cliente.on_message = lambda _cliente, _datos, mensaje: self.lote.append(mensaje)
        if self.opciones.usuario:
            clave = pathlib.Path(self.opciones.clave_archivo).read_text(encoding="utf-8").strip()
            cliente.username_pw_set(self.opciones.usuario, clave)
        if self.opciones.autoridad:
            cliente.tls_set(self.opciones.autoridad)
        propiedades = mqtt.Properties(PacketTypes.CONNECT)
        propiedades.SessionExpiryInterval = SESION
        servidor, _, puerto = self.opciones.mqtt.partition(":")
        self.cliente = cliente
        self.lote = []
        cliente.connect(servidor, int(puerto or 1883), keepalive=20, clean_start=False, properties=propiedades)

    def al_conectar(self, cliente, _datos, _banderas, razon, _propiedades=None):
        if razon != 0:
            raise ConnectionError(str(razon))
        self.conectado = True
        cliente.subscribe([(f"{self.opciones.prefijo}/v1/+/+/{tipo}", mqtt.SubscribeOptions(qos=1))
                           for tipo in TIPOS])
        print("central: escucha", file=sys.stderr, flush=True)

    def al_cortarse(self, _cliente, _datos, razon, _propiedades=None):
        self.conectado = False
        raise ConnectionError(str(razon))

    def vuelta(self):
        """Lee lo que hay; escribe cuando no viene más o el lote está lleno."""
        antes = len(self.lote)
        codigo = self.cliente.loop(0.02 if self.lote else 1)
        if codigo != mqtt.MQTT_ERR_SUCCESS:
            raise ConnectionError(mqtt.error_string(codigo))
        if self.lote and (len(self.lote) == antes or len(self.lote) >= LOTE):
            self.escribir()

    def vivir(self):
        while True:
            try:
                self.abrir_base()
                self.conectar()
                while True:
                    self.vuelta()
            except (OSError, psycopg2.Error) as falla:
                print(f"central: {falla}".strip(), file=sys.stderr, flush=True)
            self.cerrar()
            time.sleep(PAUSA)

    def cerrar(self):
        """Sin despedirse: lo que no se confirmó tiene que volver a llegar."""
        for quien in (self.cliente and self.cliente.socket(), self.base):
            try:
                if quien:
                    quien.close()
            except (OSError, psycopg2.Error):
                pass
        self.cliente = self.base = None


def opciones():
    lector = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    lector.add_argument("--mqtt", required=True, metavar="SERVIDOR[:PUERTO]")
    lector.add_argument("--base", required=True, help="como en libpq: \"host=... dbname=...\"")
    lector.add_argument("--prefijo", default="kestra")
    lector.add_argument("--identificacion", default="kestra-central", help="una por programa que escucha")
    lector.add_argument("--usuario")
    lector.add_argument("--clave-archivo")
    lector.add_argument("--autoridad", help="certificado de quien firmó el del servidor: conecta por TLS")
    return lector.parse_args()


if __name__ == "__main__":
    try:
        Central(opciones()).vivir()
    except KeyboardInterrupt:
        pass
