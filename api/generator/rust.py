"""hosts/rust/src/declaraciones.rs."""
from generator import hosts

TYPES = {"text": "*const u8", "terminated": "*const u8", "result": "*mut u8", "buffer": "*mut u8", "length": "i32",
         "integer": "i32", "amount": "f64", "operator": "*const KestraOperador", "unsigned": "u32",
         "context": "*mut c_void", "rows": "*const KestraFila"}
HEAD = [
    "",
    'Un texto es el puntero a sus bytes exactos. extern "system" es stdcall en Windows de 32 bits y la del sistema en los demás.',
]


def signature(row, name):
    arguments = ", ".join(f"{each.name}: {TYPES[each.kind]}" for each in row.arguments)
    return f"fn{name}({arguments})" + ("" if row.returns == "nothing" else " -> i32")


def record(row):
    text = f"\n/// {row.title}.\n#[repr(C)]\n#[derive(Clone, Copy)]\npub struct {row.name} {{\n"
    for field in row.fields:
        kind = f'Option<unsafe extern "system" {signature(field, "")}>' if field.kind == "callback" else TYPES[field.kind]
        text += f"    /// {field.es}\n    pub {field.name}: {kind},\n"
    return text + "}\n"


def made(table):
    text = hosts.remarks(hosts.beginning(table, "Rust") + HEAD, "//! ")
    text += "#![allow(non_snake_case)]\n\nuse std::os::raw::c_void;\n"
    for enum in table.enums:
        text += f"\n// {enum.title}.\n"
        for value in enum.constants:
            text += (f"/// {value.es}\n" if value.es else "") + f"pub const {value.name}: i32 = {value.value};\n"
    text += "".join(map(record, hosts.records(table).values()))
    text += '\n#[link(name = "kestra")]\nextern "system" {\n'
    for section, rows in table.sections:
        text += f"    // ---- {section.es} ----\n"
        for row in rows:
            text += hosts.remarks(hosts.about(row), "    /// ") + f"    pub {signature(row, ' ' + row.name)};\n"
    return {"hosts/rust/src/declaraciones.rs": text + "}\n"}
