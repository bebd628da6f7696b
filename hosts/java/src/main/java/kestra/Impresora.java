package kestra;

import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.Arrays;
import java.util.function.ToIntBiFunction;
import java.util.function.ToIntFunction;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/**
 * La impresora, de EP_Init a EP_Kill: una por programa, y un hilo por vez. Los textos son String; lo que pasa del largo que
 * la función lee se corta. Los métodos se llaman como las funciones de Kestra.java, que dice qué hace cada una.
 */
public final class Impresora implements AutoCloseable {
    private static final Pattern CLAVE = Pattern.compile("\\s*ImpresoraDispositivo\\s*=(.*)", Pattern.CASE_INSENSITIVE);
    private static final Pattern AQUI =
        Pattern.compile("tcp:(127(\\.[0-9]{1,3}){3}|localhost|\\[?::1\\]?):[0-9]+");

    private static Kestra.KestraOperador operador; // que sus funciones vivan mientras la biblioteca las use

    private final Kestra kestra;
    private final int textos; // cómo se pasaban antes; desde aquí, UTF-8 terminado en cero

    public Impresora() {
        this(Kestra.cargar());
    }

    public Impresora(Kestra kestra) {
        this.kestra = kestra;
        textos = kestra.Kestra_Textos(2);
        if (kestra.EP_Init() == 1) {
            return;
        }
        ErrorFiscal error = error("EP_Init");
        kestra.Kestra_Textos(textos);
        throw error;
    }

    @Override
    public void close() {
        kestra.EP_Kill();
        kestra.Kestra_Textos(textos);
    }

    /** Contesta en lugar de los cuadros; null vuelve a los cuadros. */
    public void definirOperador(Operador nuevo) {
        Kestra.KestraOperador registro = nuevo == null ? null : Registro.de(nuevo);
        kestra.Kestra_DefinirOperador(registro);
        operador = registro;
    }

    // ---- Comprobantes fiscales ----

    public void abrirComprobanteFiscal(String tipo, String letra, Cliente cliente) {
        abrirComprobanteFiscal(tipo, letra, cliente, 1);
    }

    public void abrirComprobanteFiscal(String tipo, String letra, Cliente cliente, int copias) {
        hecho("EP_AbrirComprobanteFiscal", kestra.EP_AbrirComprobanteFiscal(t(tipo), t(letra), t(cliente.nombre), t(""),
            t(cliente.documentoTipo), t(cliente.documentoNumero), t(cliente.responsabilidadIva), t(cliente.domicilio1),
            t(cliente.domicilio2), t(cliente.domicilio3), t(cliente.linea4), t(cliente.linea5), copias));
    }

    /** extras: hasta tres renglones más. */
    public void imprimirItem(String descripcion, double cantidad, double precio, double iva, String... extras) {
        imprimirItem(descripcion, cantidad, precio, iva, 0, extras);
    }

    public void imprimirItem(String descripcion, double cantidad, double precio, double iva, double impuestosInternos,
                             String... extras) {
        String[] e = Arrays.copyOf(extras, 3);
        hecho("EP_ImprimirItem", kestra.EP_ImprimirItem(t(descripcion), cantidad, precio, iva, impuestosInternos, t(e[0]),
            t(e[1]), t(e[2])));
    }

    public void anularItem(String descripcion, double cantidad, double precio, double iva, String... extras) {
        anularItem(descripcion, cantidad, precio, iva, 0, extras);
    }

    public void anularItem(String descripcion, double cantidad, double precio, double iva, double impuestosInternos,
                           String... extras) {
        String[] e = Arrays.copyOf(extras, 3);
        hecho("EP_AnularItem", kestra.EP_AnularItem(t(descripcion), cantidad, precio, iva, impuestosInternos, t(e[0]),
            t(e[1]), t(e[2])));
    }

    public void imprimirTextoFiscal(String texto) {
        hecho("EP_ImprimirTextoFiscal", kestra.EP_ImprimirTextoFiscal(t(texto)));
    }

    /** Da el número del comprobante. */
    public String cerrarComprobanteFiscal(String tipo, String letra) {
        return recibido("EP_CerrarComprobanteFiscal", 8, n -> kestra.EP_CerrarComprobanteFiscal(t(tipo), t(letra), n));
    }

    public void cancelar() {
        hecho("EP_Cancelar", kestra.EP_Cancelar());
    }

    // ---- Totales y pagos ----

    public void descuentoGeneral(String descripcion, double monto) {
        hecho("EP_DescuentoGeneral", kestra.EP_DescuentoGeneral(t(descripcion), monto));
    }

    public void recargoGeneral(String descripcion, double monto) {
        hecho("EP_RecargoGeneral", kestra.EP_RecargoGeneral(t(descripcion), monto));
    }

    public void especificarPercepcionGlobal(String descripcion, double monto, double iva, String calificador) {
        hecho("EP_EspecificarPercepcionGlobal",
            kestra.EP_EspecificarPercepcionGlobal(t(descripcion), monto, iva, t(calificador)));
    }

    public void imprimirPago(String descripcion, double monto) {
        hecho("EP_ImprimirPago", kestra.EP_ImprimirPago(t(descripcion), monto));
    }

    public void ajusteRedondeo(double total) {
        hecho("EP_AjusteRedondeo", kestra.EP_AjusteRedondeo(total));
    }

    // ---- Otros documentos ----

    /** lineas: hasta cuatro, de la 4 a la 7. */
    public void abrirComprobanteNoFiscalHomologado(String tipo, String marca1, String linea1, String linea2,
                                                   String documentoTipo, String documentoNumero, String marca2,
                                                   String domicilio, int cantidad, String... lineas) {
        String[] l = Arrays.copyOf(lineas, 4);
        hecho("EP_AbrirComprobanteNoFiscalHomologado", kestra.EP_AbrirComprobanteNoFiscalHomologado(t(tipo), t(marca1),
            t(linea1), t(linea2), t(documentoTipo), t(documentoNumero), t(marca2), t(domicilio), t(l[0]), t(l[1]), t(l[2]),
            t(l[3]), cantidad));
    }

    public void cerrarComprobanteNoFiscalHomologado(String tipo, String marca) {
        hecho("EP_CerrarComprobanteNoFiscalHomologado", kestra.EP_CerrarComprobanteNoFiscalHomologado(t(tipo), t(marca)));
    }

    public void abrirComprobanteNoFiscal() {
        hecho("EP_AbrirComprobanteNoFiscal", kestra.EP_AbrirComprobanteNoFiscal());
    }

    public void imprimirTextoNoFiscal(String texto) {
        hecho("EP_ImprimirTextoNoFiscal", kestra.EP_ImprimirTextoNoFiscal(t(texto)));
    }

    public void cerrarComprobanteNoFiscal() {
        hecho("EP_CerrarComprobanteNoFiscal", kestra.EP_CerrarComprobanteNoFiscal());
    }

    // ---- Informes; las fechas son AAMMDD ----

    public void reporteX() {
        hecho("EP_ReporteX", kestra.EP_ReporteX());
    }

    public void reporteZ() {
        hecho("EP_ReporteZ", kestra.EP_ReporteZ());
    }

    public void reporteZporNumeros(int primero, int ultimo) {
        hecho("EP_ReporteZporNumeros", kestra.EP_ReporteZporNumeros(primero, ultimo, 0));
    }

    public void reporteZporFechas(String desde, String hasta) {
        hecho("EP_ReporteZporFechas", kestra.EP_ReporteZporFechas(t(desde), t(hasta), 0));
    }

    // ---- El equipo; las fechas son AAMMDD y las horas, HHMMSS ----

    public void abrirCajonDeDinero(int cajon) {
        hecho("EP_AbrirCajonDeDinero", kestra.EP_AbrirCajonDeDinero(cajon));
    }

    public void cambiarFechaHora(String fecha, String hora) {
        hecho("EP_CambiarFechaHora", kestra.EP_CambiarFechaHora(t(fecha), t(hora)));
    }

    public String obtenerFechaHora() {
        return recibido("EP_ObtenerFechaHora", 12, kestra::EP_ObtenerFechaHora);
    }

    public void setEncabezado(String texto, int linea) {
        setEncabezado(texto, linea, 0);
    }

    public void setEncabezado(String texto, int linea, int atributo) {
        hecho("EP_SetEncabezado", kestra.EP_SetEncabezado(t(texto), linea, atributo));
    }

    public String getEncabezado(int linea) {
        return recibido("EP_GetEncabezado", 120, texto -> kestra.EP_GetEncabezado(texto, linea));
    }

    public void cortaPapel() {
        hecho("EP_CortaPapel", kestra.EP_CortaPapel());
    }

    public void avanzaPapel(int lineas) {
        hecho("EP_AvanzaPapel", kestra.EP_AvanzaPapel(lineas));
    }

    public String valoresModelo() {
        return recibido("EP_ValoresModelo", 64, kestra::EP_ValoresModelo);
    }

    public String numeracion() {
        return recibido("EP_Numeracion", 80, kestra::EP_Numeracion);
    }

    public String autodetectarModelo() {
        return recibido("EP_AutodetectarModelo", 14, kestra::EP_AutodetectarModelo);
    }

    // ---- Qué fue de la última llamada, y lo que quedó pendiente de una anterior. Un texto vacío es que no hay ----

    public int desenlace() {
        return kestra.Kestra_Desenlace();
    }

    public int causa() {
        return kestra.Kestra_Causa();
    }

    public String causaTexto() {
        return textoDe(kestra::Kestra_CausaTexto);
    }

    public String respuesta(int numero) {
        return pedido("Kestra_Respuesta", (texto, largo) -> kestra.Kestra_Respuesta(numero, texto, largo));
    }

    public int intentos() {
        return kestra.Kestra_Intentos();
    }

    public void estado() {
        hecho("Kestra_Estado", kestra.Kestra_Estado());
    }

    public int documentoAbierto() {
        return sabido("Kestra_DocumentoAbierto", kestra.Kestra_DocumentoAbierto());
    }

    public String subtotal() {
        return pedido("Kestra_Subtotal", kestra::Kestra_Subtotal);
    }

    /** Kestra_Numeracion. letra: 'A', 'B', 'C', o 0 para lo que no la lleva. */
    public String ultimoNumero(int clase, char letra) {
        return pedido("Kestra_Numeracion", (texto, largo) -> kestra.Kestra_Numeracion(clase, letra, texto, largo));
    }

    /** La llamada, con sus argumentos. */
    public String pendiente() {
        return pedido("Kestra_Pendiente", kestra::Kestra_Pendiente);
    }

    public int resolver() {
        return sabido("Kestra_Resolver", kestra.Kestra_Resolver());
    }

    public String resolverNumero() {
        return pedido("Kestra_ResolverNumero", kestra::Kestra_ResolverNumero);
    }

    public int olvidar() {
        return sabido("Kestra_Olvidar", kestra.Kestra_Olvidar());
    }

    // ---- Cómo viajan los textos ----

    private void hecho(String llamada, int resultado) {
        if (resultado != 0) {
            throw error(llamada);
        }
    }

    // -1: no se puede saber ahora.
    private int sabido(String llamada, int resultado) {
        if (resultado == -1) {
            throw error(llamada);
        }
        return resultado;
    }

    private String pedido(String llamada, ToIntBiFunction<byte[], Integer> pedir) {
        return textoDe((texto, largo) -> sabido(llamada, pedir.applyAsInt(texto, largo)));
    }

    private ErrorFiscal error(String llamada) {
        return new ErrorFiscal(llamada, kestra.Kestra_Desenlace(), kestra.Kestra_Causa(), causaTexto());
    }

    private static byte[] t(String texto) {
        return ((texto == null ? "" : texto) + "\0").getBytes(StandardCharsets.UTF_8);
    }

    private static String hasta(byte[] bytes) {
        int largo = 0;
        while (largo < bytes.length && bytes[largo] != 0) {
            largo++;
        }
        return new String(bytes, 0, largo, StandardCharsets.UTF_8);
    }

    private String recibido(String llamada, int largo, ToIntFunction<byte[]> llamar) {
        byte[] bytes = new byte[largo];
        hecho(llamada, llamar.applyAsInt(bytes));
        return hasta(bytes);
    }

    private static String textoDe(ToIntBiFunction<byte[], Integer> pedir) {
        byte[] bytes = new byte[1024];
        return pedir.applyAsInt(bytes, bytes.length) <= 0 ? "" : hasta(bytes);
    }

    // ---- Para ejemplos y pruebas ----

    /** Sin --impresora-real termina el programa (2) si la impresora de ./Fiscal.ini no es virtual. */
    public static void exigirImpresoraVirtual(String[] argumentos) {
        if (Arrays.asList(argumentos).contains("--impresora-real")) {
            return;
        }
        boolean alguna = false;
        boolean todas = true;
        try {
            for (String linea : Files.readAllLines(Paths.get("Fiscal.ini"), StandardCharsets.ISO_8859_1)) {
                Matcher clave = CLAVE.matcher(linea);
                if (clave.matches()) {
                    alguna = true;
                    todas = todas && esVirtual(clave.group(1).trim());
                }
            }
        } catch (IOException sinArchivo) {
            alguna = false;
        }
        String otro = System.getenv("KESTRA_DISPOSITIVO"); // se antepone a Fiscal.ini: con ella no
        if (!alguna || !todas || otro != null && !otro.isEmpty()) {
            System.err.println("La impresora de Fiscal.ini no es virtual: para usarla igual, --impresora-real.");
            System.exit(2);
        }
    }

    /** Si es una dirección de esta máquina, un pipe con nombre o una pseudoterminal. */
    public static boolean esVirtual(String dispositivo) {
        if (AQUI.matcher(dispositivo).matches() || dispositivo.startsWith("\\\\.\\pipe\\")) {
            return true;
        }
        try {
            Path real = Paths.get(dispositivo).toRealPath();
            return real.toString().matches("/dev/pts/[0-9]+");
        } catch (IOException | RuntimeException noEsta) {
            return false;
        }
    }
}
