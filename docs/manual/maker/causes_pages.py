"""A place for each cause: its number, what happened, what to do, and which operations can end so."""
from maker.markdown import index

MANY = 15  # more names than anybody reads


def made(exports):
    users = {}
    for function in exports.functions:
        for name in function.causes:
            users.setdefault(f"KESTRA_CAUSA_{name}", []).append(function.name)
    page = ["# Las causas, una por una", "",
            "El número que da [Kestra_Causa](operaciones/Kestra_Causa.md), por orden. La tabla corta está en [](causas.md).", ""]
    group = None
    for cause in exports.causes:
        if not cause.what:
            continue
        if cause.group != group:
            group = cause.group
            page += [f"## {cause.number // 100}xx: {group}", ""]
        page += [f"(causa-{cause.number})=", f"### {cause.number} {cause.what}", "",
                 index(f"Causa {cause.number}", cause.name), "", f"`{cause.name}`", ""]
        if cause.advice:
            page += [f"**Qué hacer.** {cause.advice}", ""]
        if names := users.get(cause.name):
            said = ", ".join(f"[{name}](operaciones/{name}.md)" for name in names)
            page += ["Puede pasar en casi todas las [operaciones](operaciones/index.md): lo dice la página de cada una."
                     if len(names) > MANY else f"Puede pasar en {said}.", ""]
    return "\n".join(page)
