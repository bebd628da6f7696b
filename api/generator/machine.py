"""api/kestra.json: the table for those who make declares of their own. Its keys are Spanish, as its readers are."""
import json

from generator.table import Record

KINDS = {
    "text": "texto", "terminated": "texto_terminado", "result": "resultado", "buffer": "bufer", "length": "largo",
    "integer": "entero", "amount": "doble", "operator": "operador", "identifier": "identificador", "object": "objeto",
    "unsigned": "entero_sin_signo", "context": "contexto", "rows": "filas", "callback": "funcion",
}
NATURES = {"lifetime": "vida", "operation": "operacion", "nothing": "sin_efecto", "report": "informe",
           "question": "pregunta", "components": "componentes", "beside": "aparte"}
RETURNS = {"integer": "entero", "nothing": "nada"}


def filled(entries):
    return {key: value for key, value in entries.items() if value not in ("", (), [], {}, None)}


def argument(row):
    return filled({"nombre": row.name, "clase": KINDS[row.kind], "bytes": row.bytes or None,
                   "pila": row.stack, "texto": row.es})


def result(row):
    """What a report tells when all goes well is its business: of it only the refusal has a number."""
    if row.nature in ("report", "question"):
        return {"rechazada": row.failed, "texto": row.result}
    return {"exito": row.done, "fracaso": row.failed, "texto": row.result}


def function(row):
    return filled({
        "nombre": row.name, "clase": NATURES[row.nature], "desde": row.since, "seccion": row.section.es,
        "titulo": row.title, "para_que": row.purpose, "argumentos": [argument(each) for each in row.arguments],
        "bytes_en_la_pila": row.stack, "devuelve": RETURNS[row.returns],
        "resultado": result(row),
        "que_escribe": row.writes, "si_falla": row.trouble, "familias": row.families, "tramas": row.frames,
        "sin_respuesta": row.wait, "registro": row.log, "causas": [f"KESTRA_CAUSA_{name}" for name in row.causes],
        "ejemplo": row.examples, "comentario_en_ingles": row.en})


def constants(row):
    return {"nombre": row.name, "titulo": row.title,
            "valores": [filled({"nombre": value.name, "valor": value.value, "texto": value.es})
                        for value in row.constants]}


def field(row):
    entry = {"nombre": row.name, "clase": KINDS[row.kind], "texto": row.es}
    if row.kind == "callback":
        entry |= {"devuelve": RETURNS[row.returns], "argumentos": [argument(each) for each in row.arguments]}
    return entry


def made(table):
    document = {
        "version": table.version,
        "convencion": {"windows_32": "stdcall, nombres sin decoracion", "windows_64": "la del sistema",
                       "linux": "la del sistema"},
        "codificacion": "windows-1252",
        "funciones": [function(row) for row in table.functions],
        "constantes": [constants(row) for row in table.enums],
        "causas": [filled({"nombre": row.name, "valor": row.number, "grupo": row.group, "que_paso": row.what,
                           "que_hacer": row.advice}) for row in table.causes],
        "registros": [{"nombre": row.name, "titulo": row.title, "campos": [field(each) for each in row.fields]}
                      for row in table.of(Record)],
    }
    return {"api/kestra.json": json.dumps(document, ensure_ascii=False, indent=1) + "\n"}
