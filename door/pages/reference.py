"""The contract as one page to read, without a script and without anything from elsewhere."""

import html
import json
import os
import re

METHODS = ("get", "post", "put", "delete")


def words(text):
    """A description: only its `marks` become something else."""
    return re.sub(r"`([^`]+)`", r"<code>\1</code>", html.escape(text or "", quote=False))


def example(value):
    text = value if isinstance(value, str) else json.dumps(value, ensure_ascii=False, indent=2)
    return f"<pre>{html.escape(text, quote=False)}</pre>"


class Reference:
    def __init__(self, contract):
        self.contract = contract

    def resolve(self, node):
        while "$ref" in node:
            found = self.contract
            for word in node["$ref"].removeprefix("#/").split("/"):
                found = found[word]
            node = found
        return node

    def kind(self, schema):
        """What a value is, in a few words."""
        if "$ref" in schema:
            name = schema["$ref"].rsplit("/", 1)[1]
            return f'<a href="#esquema-{name}">{name}</a>'
        if "oneOf" in schema:
            return " o ".join(map(self.kind, schema["oneOf"]))
        if "const" in schema:
            return f"<code>{html.escape(str(schema['const']))}</code>"
        if "enum" in schema:
            return " · ".join(f"<code>{html.escape(str(each))}</code>" for each in schema["enum"])
        if schema.get("type") == "array":
            return "lista de " + self.kind(schema.get("items", {}))
        return {"string": "texto", "integer": "entero", "boolean": "sí o no", "object": "objeto"}.get(schema.get("type"), "")

    def limits(self, schema):
        rows = (("minLength", "de {} o más"), ("maxLength", "hasta {} letras"), ("minItems", "{} o más"),
                ("maxItems", "hasta {}"), ("minimum", "desde {}"), ("maximum", "hasta {}"), ("default", "si falta, {}"),
                ("format", "{}"))
        return ", ".join(text.format(schema[key]) for key, text in rows if key in schema)

    def members(self, schema):
        """A table of the members of an object; of each of its kinds, when there are several."""
        if "oneOf" in schema:
            return "".join(f"<p>{self.kind(each)}</p>" if "$ref" in each else self.members(each) for each in schema["oneOf"])
        if schema.get("type") == "array":
            return self.members(schema["items"]) if "$ref" not in schema["items"] else ""
        rows = []
        for name, member in schema.get("properties", {}).items():
            must = "" if name in schema.get("required", []) else " <small>(puede faltar)</small>"
            about = " ".join(filter(None, (words(member.get("description", "")), f"<small>{self.limits(member)}</small>")))
            inside = self.members(member if member.get("type") == "object" else member.get("items", {})) \
                if "$ref" not in member and member.get("type") in ("object", "array") else ""
            rows.append(f"<tr><td><code>{name}</code>{must}</td><td>{self.kind(member)}</td><td>{about}{inside}</td></tr>")
        return f"<table>{''.join(rows)}</table>" if rows else ""

    def parameters(self, listed):
        where = {"path": "en la dirección", "query": "después de ?", "header": "encabezado"}
        rows = []
        for parameter in map(self.resolve, listed):
            must = "" if parameter.get("required") else " <small>(puede faltar)</small>"
            rows.append(f"<tr><td><code>{parameter['name']}</code>{must}</td><td>{where[parameter['in']]}</td>"
                        f"<td>{words(parameter.get('description'))} <small>{self.limits(self.resolve(parameter['schema']))}"
                        "</small></td></tr>")
        return f"<table>{''.join(rows)}</table>" if rows else ""

    def content(self, content):
        parts = []
        for kind, what in content.items():
            given = [("", what["example"])] if "example" in what else [
                (each.get("summary", name), each["value"]) for name, each in what.get("examples", {}).items()]
            shown = "".join(f"<details><summary>Ejemplo{': ' + html.escape(name) if name else ''}</summary>{example(value)}"
                            "</details>" for name, value in given)
            parts.append(f"<p><code>{kind}</code> {self.kind(what['schema'])}</p>{self.members(what['schema'])}{shown}")
        return "".join(parts)

    def operation(self, path, method, shared, operation):
        body = operation.get("requestBody")
        answers = "".join(
            f"<div class=answer><h4 class=s{status[0]}>{status}</h4><div><p>{words(answer['description'])}</p>"
            f"{self.content(answer.get('content', {}))}</div></div>"
            for status, answer in ((status, self.resolve(each)) for status, each in operation["responses"].items()))
        right = operation["x-derecho"]
        if "x-derecho-z" in operation:
            right += f", y para el Z {operation['x-derecho-z']}"
        return (f"<section id=\"{operation['operationId']}\"><h3><b class={method}>{method.upper()}</b> <code>{path}</code></h3>"
                f"<p><strong>{words(operation['summary'])}.</strong> {words(operation['description'])}</p>"
                f"<p><small>Derecho: {right}</small></p>"
                f"{self.parameters([*shared, *operation.get('parameters', [])])}"
                + (f"<h4>Pedido</h4>{self.content(body['content'])}" if body else "")
                + f"<h4>Respuestas</h4>{answers}</section>")

    def by_tag(self, tag):
        for path, item in self.contract["paths"].items():
            for method in METHODS:
                if method in item and tag in item[method]["tags"]:
                    yield path, method, item.get("parameters", []), item[method]

    def page(self):
        info = self.contract["info"]
        index = "".join(
            f"<h2>{tag['name']}</h2><ul>"
            + "".join(f"<li><a href=\"#{operation['operationId']}\">{words(operation['summary'])}</a></li>"
                      for _, _, _, operation in self.by_tag(tag["name"])) + "</ul>" for tag in self.contract["tags"])
        told = "".join(f"<h2>{tag['name']}</h2><p>{words(tag['description'])}</p>"
                       + "".join(self.operation(*each) for each in self.by_tag(tag["name"])) for tag in self.contract["tags"])
        schemas = "".join(
            f'<section id="esquema-{name}"><h3>{name}</h3><p>{words(schema.get("description"))} '
            f'<small>{self.kind(schema)} {self.limits(schema)}</small></p>{self.members(schema)}</section>'
            for name, schema in self.contract["components"]["schemas"].items())
        with open(os.path.join(os.path.dirname(os.path.abspath(__file__)), "reference.css"), encoding="utf-8") as file:
            style = file.read()
        return (f'<!doctype html>\n<html lang=es><meta charset=utf-8><meta name=viewport content="width=device-width">'
                f"<title>{info['title']}</title><style>{style}</style>\n<nav><h1>{info['title']}</h1>"
                f'<p>{info["version"]} · <a href="/v1/openapi.json">openapi.json</a></p>{index}'
                f'<h2><a href="#esquemas">Esquemas</a></h2></nav>\n'
                f"<main><p>{words(info['description'])}</p>{told}<h2 id=esquemas>Esquemas</h2>{schemas}</main></html>\n")


def page(contract):
    return Reference(contract).page()
