"""Los ejemplos emiten comprobantes: solo en una impresora virtual, si no se les pide otra cosa."""
import os
import re
import sys


def impresora_virtual(archivo="Fiscal.ini"):
    """¿Es virtual la impresora de ese archivo? Una dirección de esta máquina, una tubería o una pseudoterminal."""
    try:
        with open(archivo, encoding="cp1252") as ini:
            texto = ini.read()
    except OSError:
        return False
    # La clave puede estar más de una vez, también en secciones ajenas: no se elige cuál vale.
    dispositivos = re.findall(r"^[ \t]*ImpresoraDispositivo[ \t]*=[ \t]*(.*?)[ \t]*$", texto, re.MULTILINE | re.IGNORECASE)
    return bool(dispositivos) and all(map(dispositivo_virtual, dispositivos))


def dispositivo_virtual(dispositivo):
    if re.fullmatch(r"tcp:(127\.\d+\.\d+\.\d+|localhost|\[::1\]):\d+", dispositivo, re.IGNORECASE):
        return True
    if dispositivo.startswith("\\\\.\\pipe\\"):
        return True
    return bool(re.fullmatch(r"/dev/pts/\d+", os.path.realpath(dispositivo)))


def exigir_impresora_virtual(argumentos):
    """Termina el programa con 2, salvo con una impresora virtual o con --impresora-real entre los argumentos."""
    # La variable KESTRA_DISPOSITIVO se antepone a Fiscal.ini: con ella no.
    if "--impresora-real" not in argumentos and (os.environ.get("KESTRA_DISPOSITIVO") or not impresora_virtual()):
        print("La impresora de Fiscal.ini no es virtual: para usarla igual, --impresora-real.", file=sys.stderr)
        sys.exit(2)
