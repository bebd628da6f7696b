// Kestra para C++ (C++17): las llamadas con std::string en UTF-8, y una excepción cuando una falla.
// No hay que compilar nada más: alcanza con este archivo, kestra/kestra.h y la biblioteca.
#pragma once

#include <kestra/causas.h>
#include <kestra/kestra.h>

#include <cstdint>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <memory>
#include <regex>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kestra {

using Texto = const std::string&;

// Un texto que da la biblioteca. `pedir` es la función, con lo que va delante del búfer ya puesto.
template <class Pedir>
std::string texto_de(Pedir pedir) {
    std::string texto(1024, '\0');
    const std::int32_t largo = pedir(texto.data(), static_cast<std::int32_t>(texto.size()));
    return largo <= 0 ? "" : texto.c_str();
}

// Una llamada que falló. what() es la oración para el operador: qué pasó, si se hizo y qué hacer ahora.
class ErrorFiscal : public std::runtime_error {
public:
    explicit ErrorFiscal(const char* llamada)
        : std::runtime_error(oracion(llamada)), llamada_(llamada), desenlace_(Kestra_Desenlace()), causa_(Kestra_Causa()) {}

    const std::string& llamada() const { return llamada_; }  // la función que falló, como "EP_ImprimirItem"
    std::int32_t desenlace() const { return desenlace_; }    // un número de KestraDesenlace: si se hizo o no
    std::int32_t causa() const { return causa_; }            // un número de causas.h: por qué

private:
    static std::string oracion(const char* llamada) {
        const std::string dicho = texto_de(Kestra_CausaTexto);
        return dicho.empty() ? std::string(llamada) + " falló: ver fiscal.log" : dicho;
    }

    std::string llamada_;
    std::int32_t desenlace_, causa_;
};

// A quién se le hace el comprobante. Sin nada es un consumidor final.
struct Cliente {
    std::string nombre = "", documento_tipo = "", documento_numero = "", responsabilidad_iva = "F";
    std::string domicilio1 = "", domicilio2 = "", domicilio3 = "", linea4 = "", linea5 = "";
};

// Un renglón del informe de estados.
struct Fila {
    std::int32_t grupo, numero, clase;  // grupo: 0 de la impresora, 1 fiscal; clase: 0 información, 1 error
    bool encendida;
    std::string texto, ayuda;
};

// Quien contesta en lugar de los cuadros; sin una de las funciones, ese tema sigue en los suyos. Lo que lance una, vale
// como No o Cerrar: a través de la biblioteca no puede salir.
struct Operador {
    std::function<int(Texto texto, Texto titulo, int estilo)> mensaje;  // 1 Aceptar, 6 Sí, 7 No; estilo: 0 Aceptar, 4 y 36 Sí/No
    std::function<bool(Texto impresora, Texto fiscal, const std::vector<Fila>& filas)> informe_estados;  // si mandar otra vez
    std::function<void()> memoria_llena;
};

// Un operador como lo llama la biblioteca; `contexto` es el Operador.
struct Llamadas {
    template <class Contestar>
    static auto sin_caer(Contestar contestar) -> decltype(contestar()) {
        try {
            return contestar();
        } catch (const std::exception& error) {
            std::cerr << "operador: " << error.what() << '\n';
        } catch (...) {
            std::cerr << "operador: excepción\n";
        }
        return decltype(contestar())();
    }
    static std::int32_t KESTRA_CALL mensaje(void* contexto, const char* texto, const char* titulo, std::int32_t estilo) {
        return sin_caer([&] { return static_cast<Operador*>(contexto)->mensaje(texto, titulo, estilo); });
    }
    static std::int32_t KESTRA_CALL informe_estados(void* contexto, const char* impresora, const char* fiscal,
                                                    const KestraFila* filas, std::int32_t cantidad) {
        return sin_caer([&] {
            std::vector<Fila> propias;
            for (const KestraFila* fila = filas; fila != filas + cantidad; ++fila)
                propias.push_back({fila->grupo, fila->numero, fila->clase, fila->encendida != 0, fila->texto, fila->ayuda});
            return static_cast<Operador*>(contexto)->informe_estados(impresora, fiscal, propias);
        });
    }
    static void KESTRA_CALL memoria_llena(void* contexto) {
        sin_caer([&] { static_cast<Operador*>(contexto)->memoria_llena(); });
    }
};

// La impresora, desde EP_Init hasta EP_Kill: una por programa, y un hilo por vez. Los textos son UTF-8; lo que pasa
// del largo que la función lee se corta. Los métodos se llaman como las funciones de kestra.h, que dice qué hace cada una.
class Impresora {
public:
    Impresora() : textos_(Kestra_Textos(2)) {
        if (EP_Init() == 1) return;
        const ErrorFiscal error("EP_Init");
        Kestra_Textos(textos_);
        throw error;
    }
    ~Impresora() {
        EP_Kill();
        if (operador_) Kestra_DefinirOperador(nullptr);
        Kestra_Textos(textos_);
    }
    Impresora(const Impresora&) = delete;
    Impresora& operator=(const Impresora&) = delete;

    // Contesta en lugar de los cuadros, mientras dure la impresora; sin funciones vuelve a los cuadros.
    void definir_operador(Operador operador) {
        auto propio = std::make_unique<Operador>(std::move(operador));
        KestraOperador registro = {};
        registro.tamano = sizeof registro;
        registro.contexto = propio.get();
        if (propio->mensaje) registro.mensaje = Llamadas::mensaje;
        if (propio->informe_estados) registro.informe_estados = Llamadas::informe_estados;
        if (propio->memoria_llena) registro.memoria_llena = Llamadas::memoria_llena;
        Kestra_DefinirOperador(&registro);
        operador_.swap(propio);
    }

    // Comprobantes fiscales.
    void abrir_comprobante_fiscal(Texto tipo, Texto letra, const Cliente& de = {}, int copias = 1) {
        hecho("EP_AbrirComprobanteFiscal",
              EP_AbrirComprobanteFiscal(tipo.c_str(), letra.c_str(), de.nombre.c_str(), "", de.documento_tipo.c_str(),
                                        de.documento_numero.c_str(), de.responsabilidad_iva.c_str(), de.domicilio1.c_str(),
                                        de.domicilio2.c_str(), de.domicilio3.c_str(), de.linea4.c_str(), de.linea5.c_str(), copias));
    }
    void imprimir_item(Texto descripcion, double cantidad, double precio, double iva, Texto extra1 = "", Texto extra2 = "",
                       Texto extra3 = "", double impuestos_internos = 0) {
        hecho("EP_ImprimirItem", EP_ImprimirItem(descripcion.c_str(), cantidad, precio, iva, impuestos_internos, extra1.c_str(),
                                                 extra2.c_str(), extra3.c_str()));
    }
    void anular_item(Texto descripcion, double cantidad, double precio, double iva, Texto extra1 = "", Texto extra2 = "",
                     Texto extra3 = "", double impuestos_internos = 0) {
        hecho("EP_AnularItem", EP_AnularItem(descripcion.c_str(), cantidad, precio, iva, impuestos_internos, extra1.c_str(),
                                             extra2.c_str(), extra3.c_str()));
    }
    void imprimir_texto_fiscal(Texto texto) { hecho("EP_ImprimirTextoFiscal", EP_ImprimirTextoFiscal(texto.c_str())); }
    std::string cerrar_comprobante_fiscal(Texto tipo, Texto letra) {  // da su número
        return recibido<8>("EP_CerrarComprobanteFiscal",
                           [&](char* numero) { return EP_CerrarComprobanteFiscal(tipo.c_str(), letra.c_str(), numero); });
    }
    void cancelar() { hecho("EP_Cancelar", EP_Cancelar()); }

    // Totales y pagos.
    void descuento_general(Texto descripcion, double monto) {
        hecho("EP_DescuentoGeneral", EP_DescuentoGeneral(descripcion.c_str(), monto));
    }
    void recargo_general(Texto descripcion, double monto) {
        hecho("EP_RecargoGeneral", EP_RecargoGeneral(descripcion.c_str(), monto));
    }
    void especificar_percepcion_global(Texto descripcion, double monto, double iva, Texto calificador) {
        hecho("EP_EspecificarPercepcionGlobal",
              EP_EspecificarPercepcionGlobal(descripcion.c_str(), monto, iva, calificador.c_str()));
    }
    void imprimir_pago(Texto descripcion, double monto) {
        hecho("EP_ImprimirPago", EP_ImprimirPago(descripcion.c_str(), monto));
    }
    void ajuste_redondeo(double total) { hecho("EP_AjusteRedondeo", EP_AjusteRedondeo(total)); }

    // Otros documentos.
    void abrir_comprobante_no_fiscal_homologado(Texto tipo, Texto marca1, Texto linea1, Texto linea2, Texto documento_tipo,
                                                Texto documento_numero, Texto marca2, Texto domicilio, Texto linea4 = "",
                                                Texto linea5 = "", Texto linea6 = "", Texto linea7 = "", int cantidad = 1) {
        hecho("EP_AbrirComprobanteNoFiscalHomologado",
              EP_AbrirComprobanteNoFiscalHomologado(tipo.c_str(), marca1.c_str(), linea1.c_str(), linea2.c_str(),
                                                    documento_tipo.c_str(), documento_numero.c_str(), marca2.c_str(),
                                                    domicilio.c_str(), linea4.c_str(), linea5.c_str(), linea6.c_str(),
                                                    linea7.c_str(), cantidad));
    }
    void cerrar_comprobante_no_fiscal_homologado(Texto tipo, Texto marca) {
        hecho("EP_CerrarComprobanteNoFiscalHomologado", EP_CerrarComprobanteNoFiscalHomologado(tipo.c_str(), marca.c_str()));
    }
    void abrir_comprobante_no_fiscal() { hecho("EP_AbrirComprobanteNoFiscal", EP_AbrirComprobanteNoFiscal()); }
    void imprimir_texto_no_fiscal(Texto texto) { hecho("EP_ImprimirTextoNoFiscal", EP_ImprimirTextoNoFiscal(texto.c_str())); }
    void cerrar_comprobante_no_fiscal() { hecho("EP_CerrarComprobanteNoFiscal", EP_CerrarComprobanteNoFiscal()); }

    // Informes.
    void reporte_x() { hecho("EP_ReporteX", EP_ReporteX()); }
    void reporte_z() { hecho("EP_ReporteZ", EP_ReporteZ()); }
    void reporte_z_por_numeros(int primero, int ultimo) {
        hecho("EP_ReporteZporNumeros", EP_ReporteZporNumeros(primero, ultimo, 0));
    }
    void reporte_z_por_fechas(Texto desde, Texto hasta) {  // AAMMDD
        hecho("EP_ReporteZporFechas", EP_ReporteZporFechas(desde.c_str(), hasta.c_str(), 0));
    }

    // El equipo.
    void abrir_cajon_de_dinero(int cajon = 1) { hecho("EP_AbrirCajonDeDinero", EP_AbrirCajonDeDinero(cajon)); }
    void cambiar_fecha_hora(Texto fecha, Texto hora) {  // AAMMDD, HHMMSS
        hecho("EP_CambiarFechaHora", EP_CambiarFechaHora(fecha.c_str(), hora.c_str()));
    }
    std::string obtener_fecha_hora() { return recibido<12>("EP_ObtenerFechaHora", EP_ObtenerFechaHora); }
    void set_encabezado(Texto texto, int linea, int atributo = 0) {
        hecho("EP_SetEncabezado", EP_SetEncabezado(texto.c_str(), linea, atributo));
    }
    std::string get_encabezado(int linea) {
        return recibido<120>("EP_GetEncabezado", [&](char* texto) { return EP_GetEncabezado(texto, linea); });
    }
    void corta_papel() { hecho("EP_CortaPapel", EP_CortaPapel()); }
    void avanza_papel(int lineas) { hecho("EP_AvanzaPapel", EP_AvanzaPapel(lineas)); }
    std::string valores_modelo() { return recibido<64>("EP_ValoresModelo", EP_ValoresModelo); }
    std::string numeracion() { return recibido<80>("EP_Numeracion", EP_Numeracion); }
    std::string autodetectar_modelo() { return recibido<14>("EP_AutodetectarModelo", EP_AutodetectarModelo); }

    // Qué fue de la última llamada, y lo que quedó pendiente de una anterior. Un texto vacío es que no hay.
    std::int32_t desenlace() const { return Kestra_Desenlace(); }
    std::int32_t causa() const { return Kestra_Causa(); }
    std::string causa_texto() const { return texto_de(Kestra_CausaTexto); }
    std::string respuesta(int numero) const {
        return pedido("Kestra_Respuesta",
                      [&](char* texto, std::int32_t largo) { return Kestra_Respuesta(numero, texto, largo); });
    }
    std::int32_t intentos() const { return Kestra_Intentos(); }
    void estado() { hecho("Kestra_Estado", Kestra_Estado()); }
    std::int32_t documento_abierto() const { return sabido("Kestra_DocumentoAbierto", Kestra_DocumentoAbierto()); }
    std::string subtotal() { return pedido("Kestra_Subtotal", Kestra_Subtotal); }
    std::string ultimo_numero(int clase, char letra = 0) {  // Kestra_Numeracion
        return pedido("Kestra_Numeracion",
                      [&](char* texto, std::int32_t largo) { return Kestra_Numeracion(clase, letra, texto, largo); });
    }
    std::string pendiente() { return pedido("Kestra_Pendiente", Kestra_Pendiente); }  // la llamada, con sus argumentos
    std::int32_t resolver() { return sabido("Kestra_Resolver", Kestra_Resolver()); }
    std::string resolver_numero() { return pedido("Kestra_ResolverNumero", Kestra_ResolverNumero); }
    std::int32_t olvidar() { return sabido("Kestra_Olvidar", Kestra_Olvidar()); }

private:
    static void hecho(const char* llamada, std::int32_t resultado) {
        if (resultado != 0) throw ErrorFiscal(llamada);
    }
    static std::int32_t sabido(const char* llamada, std::int32_t resultado) {  // -1: no se puede saber ahora
        if (resultado == -1) throw ErrorFiscal(llamada);
        return resultado;
    }
    template <class Pedir>
    static std::string pedido(const char* llamada, Pedir pedir) {
        return texto_de([&](char* texto, std::int32_t largo) { return sabido(llamada, pedir(texto, largo)); });
    }
    template <std::size_t Bytes, class Llamar>
    static std::string recibido(const char* llamada, Llamar llamar) {
        char texto[Bytes + 1] = "";
        hecho(llamada, llamar(texto));
        return texto;
    }

    std::int32_t textos_;  // cómo se pasaban antes
    std::unique_ptr<Operador> operador_;
};

// Si la impresora de ./Fiscal.ini es virtual: una dirección de esta máquina, un pipe con nombre o una pseudoterminal.
inline bool es_virtual(const std::string& dispositivo) {
    static const std::regex aqui(R"(tcp:(127(\.[0-9]{1,3}){3}|localhost|\[?::1\]?):[0-9]+)"), terminal("/dev/pts/[0-9]+");
    if (std::regex_match(dispositivo, aqui) || dispositivo.rfind(R"(\\.\pipe\)", 0) == 0) return true;
    std::error_code error;
    return std::regex_match(std::filesystem::canonical(dispositivo, error).string(), terminal) && !error;
}

// Para ejemplos y pruebas: sin --impresora-real termina el programa (2) si la impresora de ./Fiscal.ini no es virtual.
inline void exigir_impresora_virtual(int argc, char** argv) {
    for (int i = 1; i < argc; ++i)
        if (argv[i] == std::string_view("--impresora-real")) return;
    static const std::regex clave(R"(\s*ImpresoraDispositivo\s*=\s*(.*?)\s*)", std::regex::icase);
    std::ifstream ini("Fiscal.ini");
    bool alguna = false, todas = true;
    std::smatch partes;
    for (std::string linea; std::getline(ini, linea);)
        if (std::regex_match(linea, partes, clave)) alguna = true, todas = todas && es_virtual(partes[1]);
    const char* otro = std::getenv("KESTRA_DISPOSITIVO");  // se antepone a Fiscal.ini: con ella no
    if (alguna && todas && !(otro && *otro)) return;
    std::cerr << "La impresora de Fiscal.ini no es virtual: para usarla igual, --impresora-real.\n";
    std::exit(2);
}

}  // namespace kestra
