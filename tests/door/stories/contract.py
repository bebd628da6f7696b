"""The contract as a judge: whether a request and its answer are those that door/pages/openapi.json describes."""

import copy
import json
import os
import re
from urllib.parse import parse_qsl, urlsplit

import jsonschema

SOURCE = os.environ.get("KESTRA_SOURCE") or os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "..")
CONTRACT = os.path.join(SOURCE, "door", "pages", "openapi.json")
# What `datos` of an event is, by its kind.
NEWS = {"trabajo": "Trabajo", "documento": "Trabajo", "cierre": "Trabajo", "impresora": "Impresora", "estado": "Estado"}
NOT_DESCRIBED = ("OPTIONS", "HEAD")  # what HTTP itself says of them is enough


def without_more(node):
    """The same schema for an answer: a member that the contract does not tell of is a fault."""
    if isinstance(node, dict):
        if node.get("type") == "object" and "properties" in node:
            node.setdefault("additionalProperties", False)
        for value in node.values():
            without_more(value)
    elif isinstance(node, list):
        for value in node:
            without_more(value)
    return node


class Contract:
    def __init__(self, path=CONTRACT):
        with open(path, encoding="utf-8") as file:
            self.document = json.load(file)
        self.asked = self.document["components"]
        self.answered = without_more(copy.deepcopy(self.asked))
        self.routes = [(re.compile("^" + re.sub(r"\{\w+\}", "([^/]*)", path) + "$"), path)
                       for path in sorted(self.document["paths"], key=lambda path: ("{" in path, path))]
        self.checkers = {}  # of schemas that have been needed; each keeps its own alive
        self.seen = set()  # (method, path, status) that came by

    def resolve(self, node):
        while isinstance(node, dict) and "$ref" in node:
            found = self.document
            for word in node["$ref"].removeprefix("#/").split("/"):
                found = found[word.replace("~1", "/").replace("~0", "~")]
            node = found
        return node

    def faults(self, schema, value, components):
        key = id(schema), components is self.answered
        if key not in self.checkers:
            strict = without_more(copy.deepcopy(schema)) if components is self.answered else schema
            self.checkers[key] = schema, jsonschema.Draft202012Validator({"components": components, **strict})
        return [f"{error.json_path}: {error.message[:300]}" for error in self.checkers[key][1].iter_errors(value)]

    def operation(self, method, target):
        """The operation, the values in its path and its path in the contract; nothing for what is not in it."""
        path = urlsplit(target).path
        for pattern, name in self.routes:
            match = pattern.match(path)
            if match:
                item = self.document["paths"][name]
                return item.get(method.lower()), item.get("parameters", []), match.groups(), name
        return None, [], (), None

    def request_faults(self, method, target, headers, body):
        """What in a request the contract does not allow."""
        operation, shared, values, name = self.operation(method, target)
        if operation is None:
            return [f"{method} {target} is not in the contract"]
        faults = []
        query = dict(parse_qsl(urlsplit(target).query, keep_blank_values=True))
        in_path = dict(zip(re.findall(r"\{(\w+)\}", name), values))
        lower = {key.lower(): value for key, value in headers.items()}
        known = set()
        for parameter in map(self.resolve, [*shared, *operation.get("parameters", [])]):
            place, key = parameter["in"], parameter["name"]
            given = {"path": in_path, "query": query, "header": lower}[place].get(key.lower() if place == "header" else key)
            known.add((place, key))
            if given is None:
                faults += [f"{place} {key} is missing"] if parameter.get("required") else []
                continue
            faults += [f"{place} {key}{fault}" for fault in self.text_faults(parameter["schema"], given, self.asked)]
        faults += [f"query {key} is not in the contract" for key in query if ("query", key) not in known]
        wanted = operation.get("requestBody")
        if wanted is None:
            return faults + (["a body where none is wanted"] if body else [])
        if not body:
            return faults + (["the body is missing"] if wanted.get("required") else [])
        kind = lower.get("content-type", "").split(";")[0].strip().lower()
        if kind not in wanted["content"]:
            return faults + [f"a body of the kind {kind!r}"]
        try:
            value = json.loads(body)
        except ValueError as error:
            return faults + [f"the body is no JSON: {error}"]
        return faults + ["body " + fault for fault in self.faults(wanted["content"][kind]["schema"], value, self.asked)]

    def text_faults(self, schema, text, components):
        schema = self.resolve(schema)
        if schema.get("type") == "integer":
            if not re.fullmatch(r"-?\d+", text):
                return [f": {text!r} is no whole number"]
            return self.faults(schema, int(text), components)
        return self.faults(schema, text, components)

    def answer_faults(self, method, target, status, headers, body):
        """What in an answer the contract does not have. `body` is None for a stream."""
        operation, _, _, name = self.operation(method, target)
        if method in NOT_DESCRIBED:
            return []
        lower = {key.lower(): value for key, value in headers.items()}
        kind = lower.get("content-type", "").split(";")[0].strip().lower()
        if operation is None and method == "GET" and not urlsplit(target).path.startswith("/v1/"):
            return []  # pages are for people
        if operation is None:
            return [] if status in (400, 401, 403, 404, 405, 421, 429) else [f"{status} for what is not in the contract"]
        self.seen.add((method, name, status))
        if status in (400, 405, 408, 421, 431) and str(status) not in operation["responses"]:
            return []  # what is wrong with HTTP itself
        if str(status) not in operation["responses"]:
            return [f"{status} is no answer to {method} {name}"]
        answer = self.resolve(operation["responses"][str(status)])
        faults = []
        for key, header in answer.get("headers", {}).items():
            if key.lower() in lower:
                faults += [f"header {key}{fault}"
                           for fault in self.text_faults(self.resolve(header)["schema"], lower[key.lower()], self.answered)]
        if status == 202 and "location" not in lower:
            faults.append("202 without Location")
        content = answer.get("content", {})
        if kind not in content:
            return faults + [f"an answer {status} of the kind {kind!r}"]
        if body is None or not kind.endswith("json"):
            return faults
        try:
            value = json.loads(body)
        except ValueError as error:
            return faults + [f"the answer is no JSON: {error}"]
        if kind == "application/problem+json" and value.get("status") != status:
            faults.append(f"a problem of status {value.get('status')} in an answer {status}")
        return faults + ["answer " + fault for fault in self.faults(content[kind]["schema"], value, self.answered)]

    def event_faults(self, lines):
        """What in one event of the stream is not as it should be; `lines` without their ends."""
        fields = dict(line.split(": ", 1) if ": " in line else (line.rstrip(":"), "") for line in lines
                      if not line.startswith(":"))
        if "data" not in fields:
            return []
        try:
            value = json.loads(fields["data"])
        except ValueError as error:
            return [f"an event whose data is no JSON: {error}"]
        faults = self.faults({"$ref": "#/components/schemas/Suceso"}, value, self.answered)
        if fields.get("event") != value.get("tipo"):
            faults.append(f"event {fields.get('event')!r} of the kind {value.get('tipo')!r}")
        if fields.get("id", str(value.get("suceso"))) != str(value.get("suceso")):
            faults.append(f"event id {fields['id']} is {value.get('suceso')}")
        if value.get("tipo") in NEWS:
            faults += self.faults({"$ref": "#/components/schemas/" + NEWS[value["tipo"]]}, value["datos"], self.answered)
        return ["event " + fault for fault in faults]
