#pragma once

namespace kestra {

struct ProfileRow {
  const char* why;
  const char* text;
  const char* value;  // of the key CPI in the section Epson_Fiscal
};

inline constexpr ProfileRow kProfileRows[] = {
    {"a plain key", "[Epson_Fiscal]\nCPI=12\n", "12"},
    {"an empty file", "", ""},
    {"no such section", "[Otra]\nCPI=12\n", ""},
    {"no such key", "[Epson_Fiscal]\nOtra=12\n", ""},
    {"a key before any section", "CPI=12\n[Epson_Fiscal]\n", ""},
    {"a key of the next section", "[Epson_Fiscal]\n[Otra]\nCPI=12\n", ""},
    {"names in another case", "[EPSON_fiscal]\ncpi=12\n", "12"},
    {"the first key of a name serves", "[Epson_Fiscal]\nCPI=1\nCPI=2\n", "1"},
    {"the first section of a name serves", "[Epson_Fiscal]\nA=1\n[Epson_Fiscal]\nCPI=2\n", ""},
    {"a section behind others", "[A]\nCPI=1\n[B]\n[Epson_Fiscal]\nCPI=3\n", "3"},
    {"blanks around the name and the value", "[Epson_Fiscal]\n \tCPI \t= \t12 \t\n", "12"},
    {"blanks around the section", "  [ Epson_Fiscal ]  \nCPI=12\n", "12"},
    {"words behind the section", "[Epson_Fiscal] ; la impresora\nCPI=12\n", "12"},
    {"double quotes", "[Epson_Fiscal]\nCPI=\"12\"\n", "12"},
    {"single quotes", "[Epson_Fiscal]\nCPI='12'\n", "12"},
    {"one pair of quotes only", "[Epson_Fiscal]\nCPI=\"\"12\"\"\n", "\"12\""},
    {"quotes that do not match", "[Epson_Fiscal]\nCPI=\"12'\n", "\"12'"},
    {"a single quote alone", "[Epson_Fiscal]\nCPI=\"\n", "\""},
    {"empty quotes", "[Epson_Fiscal]\nCPI=\"\"\n", ""},
    {"blanks inside quotes stay", "[Epson_Fiscal]\nCPI= \"  a b  \" \n", "  a b  "},
    {"a comment line", "[Epson_Fiscal]\n;CPI=1\n ; CPI=2\nCPI=3\n", "3"},
    {"a semicolon behind the value belongs to it", "[Epson_Fiscal]\nCPI=12 ; caracteres\n",
     "12 ; caracteres"},
    {"an equals sign in the value", "[Epson_Fiscal]\nCPI=a=b\n", "a=b"},
    {"an empty value", "[Epson_Fiscal]\nCPI=\nCPI=5\n", ""},
    {"a longer name that begins alike", "[Epson_Fiscal]\nCPI2=1\nCP=2\nCPI=3\n", "3"},
    {"lines that end with CR LF", "[Epson_Fiscal]\r\nCPI=12\r\n", "12"},
    {"lines that end with CR CR LF", "[Epson_Fiscal]\r\r\nCPI=12\r\r\n", "12"},
    {"a last line without its end", "[Epson_Fiscal]\nCPI=12", "12"},
    {"empty lines", "\n\n[Epson_Fiscal]\n\n\nCPI=12\n", "12"},
    {"a byte-order mark", "\xEF\xBB\xBF[Epson_Fiscal]\nCPI=12\n", "12"},
    {"the end-of-file byte of old editors", "[Epson_Fiscal]\nCPI=12\n\x1A", "12"},
    {"a bracket that never closes begins no section", "[Epson_Fiscal]\n[rota\nCPI=12\n", "12"},
    {"accents are bytes like others", "[Epson_Fiscal]\nCPI=\xE1\xE9\n", "\xE1\xE9"},
};

}  // namespace kestra
