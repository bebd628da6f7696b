"""hosts/java/src/main/java/kestra/Kestra.java, for JNA."""
from generator import hosts

TYPES = {"text": "byte[]", "terminated": "byte[]", "result": "byte[]", "buffer": "byte[]", "length": "int",
         "integer": "int", "amount": "double", "operator": "KestraOperador", "unsigned": "int",
         "context": "Pointer", "rows": "Pointer"}
HEAD = [
    "",
    "Un texto es un byte[] con sus bytes exactos; un búfer, un byte[] en cero.",
    "Kestra.cargar() busca Kestra.dll en Windows y libkestra.so en Linux, con la convención que toca.",
]
BEGINNING = """\
package kestra;

import com.sun.jna.Callback;
import com.sun.jna.Function;
import com.sun.jna.Library;
import com.sun.jna.Native;
import com.sun.jna.Platform;
import com.sun.jna.Pointer;
import com.sun.jna.Structure;
import java.util.Collections;
import java.util.Map;

public interface Kestra extends Library {
    /** La biblioteca del sistema. */
    static Kestra cargar() {
        return cargar("kestra");
    }

    /** La biblioteca de ese nombre o esa ruta. */
    static Kestra cargar(String nombre) {
        return Native.load(nombre, Kestra.class, opciones());
    }

    /** stdcall en Windows de 32 bits, también en las funciones del operador. */
    static Map<String, Object> opciones() {
        boolean stdcall = Platform.isWindows() && !Platform.is64Bit();
        return stdcall
            ? Collections.singletonMap(Library.OPTION_CALLING_CONVENTION, (Object) Function.ALT_CONVENTION)
            : Collections.<String, Object>emptyMap();
    }
"""


def returned(row):
    return "void" if row.returns == "nothing" else "int"


def doc(lines, indent="    "):
    lines = [line.replace("&", "&amp;").replace("<", "&lt;") for line in lines]
    if len(lines) == 1:
        return f"{indent}/** {lines[0]} */\n"
    return f"{indent}/**\n" + "".join(f"{indent} * {line}\n" for line in lines) + f"{indent} */\n"


def declare(row):
    arguments = ", ".join(f"{TYPES[each.kind]} {each.name}" for each in row.arguments)
    return doc(hosts.about(row)) + f"    {returned(row)} {row.name}({arguments});\n"


def types(table):
    text = ""
    for field in hosts.callbacks(table):
        arguments = ", ".join(f"{'Pointer' if each.is_pointer else 'int'} {each.name}" for each in field.arguments)
        text += "\n" + doc([field.es]) + f"    interface {hosts.camel(field.name)} extends Callback {{\n"
        text += f"        {returned(field)} llamar({arguments});\n    }}\n"
    for record in hosts.records(table).values():
        names = ", ".join(f'"{field.name}"' for field in record.fields)
        text += "\n" + doc([record.title + "."]) + f"    @Structure.FieldOrder({{{names}}})\n"
        text += f"    class {record.name} extends Structure {{\n"
        for field in record.fields:
            kind = {"integer": "int", "unsigned": "int", "callback": hosts.camel(field.name)}.get(field.kind, "Pointer")
            text += f"        public {kind} {field.name}; // {field.es}\n"
        text += "    }\n"
    return text


def made(table):
    text = hosts.remarks(hosts.beginning(table, "Java (JNA)") + HEAD, "// ") + BEGINNING
    for enum in table.enums:
        text += f"\n    // {enum.title}.\n"
        for value in enum.constants:
            text += f"    int {value.name} = {value.value};" + (f" // {value.es}" if value.es else "") + "\n"
    text += types(table)
    for section, rows in table.sections:
        text += f"\n    // ---- {section.es} ----\n"
        for row in rows:
            text += "\n" + declare(row)
    return {"hosts/java/src/main/java/kestra/Kestra.java": text + "}\n"}
