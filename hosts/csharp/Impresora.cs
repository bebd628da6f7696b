// Kestra para C#: las llamadas con string, y una excepción cuando una falla. Se compila junto con Kestra.cs.
using System;
using System.IO;
using System.Runtime.InteropServices;
using System.Text;
using System.Text.RegularExpressions;
using static KestraFiscal.Kestra;

namespace KestraFiscal
{
    /// <summary>Una llamada que falló. Message es la oración para el operador: qué pasó, si se hizo y qué hacer.</summary>
    public sealed class ErrorFiscal : Exception
    {
        /// <summary>La función que falló, como "EP_ImprimirItem".</summary>
        public string Llamada { get; private set; }
        /// <summary>Un número de KESTRA_DESENLACE: si se hizo o no.</summary>
        public int Desenlace { get; private set; }
        /// <summary>Un número de KESTRA_CAUSA: por qué.</summary>
        public int Causa { get; private set; }

        public ErrorFiscal(string llamada) : base(Oracion(llamada))
        {
            Llamada = llamada;
            Desenlace = Kestra_Desenlace();
            Causa = Kestra_Causa();
        }

        private static string Oracion(string llamada)
        {
            string dicho = Impresora.TextoDe(Kestra_CausaTexto);
            return dicho != "" ? dicho : llamada + " falló: ver fiscal.log";
        }
    }

    /// <summary>A quién se le hace el comprobante. Sin nada es un consumidor final.</summary>
    public sealed class Cliente
    {
        public string Nombre = "", DocumentoTipo = "", DocumentoNumero = "", ResponsabilidadIva = "F";
        public string Domicilio1 = "", Domicilio2 = "", Domicilio3 = "", Linea4 = "", Linea5 = "";
    }

    /// <summary>Un renglón del informe de estados.</summary>
    public sealed class Fila
    {
        public int Grupo, Numero, Clase;  // Grupo: 0 de la impresora, 1 fiscal; Clase: 0 información, 1 error
        public bool Encendida;
        public string Texto, Ayuda;
    }

    /// <summary>Quien contesta en lugar de los cuadros; sin una de las funciones, ese tema sigue en los suyos. Lo que lance
    /// una, vale como No o Cerrar: a través de la biblioteca no puede salir.</summary>
    public sealed class Operador
    {
        /// <summary>Texto, título y estilo (0 Aceptar, 4 y 36 Sí/No). Da 1 Aceptar, 6 Sí, 7 No.</summary>
        public Func<string, string, int, int> Mensaje;
        /// <summary>Palabras de la impresora y fiscal, y filas. Da si mandar otra vez.</summary>
        public Func<string, string, Fila[], bool> InformeEstados;
        public Action MemoriaLlena;

        internal KestraOperador Registro()
        {
            var registro = new KestraOperador { tamano = (uint)Marshal.SizeOf(typeof(KestraOperador)) };
            if (Mensaje != null)
                registro.mensaje = (_, texto, titulo, estilo) => SinCaer(() => Mensaje(Texto(texto), Texto(titulo), estilo));
            if (InformeEstados != null)
                registro.informe_estados = (_, impresora, fiscal, filas, cantidad) =>
                    SinCaer(() => InformeEstados(Texto(impresora), Texto(fiscal), Filas(filas, cantidad)) ? 1 : 0);
            if (MemoriaLlena != null) registro.memoria_llena = _ => SinCaer(() => { MemoriaLlena(); return 0; });
            return registro;
        }

        private static int SinCaer(Func<int> contestar)
        {
            try { return contestar(); }
            catch (Exception error) { Console.Error.WriteLine(error); return 0; }
        }

        private static Fila[] Filas(IntPtr filas, int cantidad)
        {
            var propias = new Fila[cantidad];
            for (int i = 0; i < cantidad; i++)
            {
                IntPtr lugar = new IntPtr(filas.ToInt64() + i * Marshal.SizeOf(typeof(KestraFila)));
                var fila = (KestraFila)Marshal.PtrToStructure(lugar, typeof(KestraFila));
                propias[i] = new Fila { Grupo = fila.grupo, Numero = fila.numero, Clase = fila.clase,
                    Encendida = fila.encendida != 0, Texto = Texto(fila.texto), Ayuda = Texto(fila.ayuda) };
            }
            return propias;
        }

        private static string Texto(IntPtr texto)
        {
            int largo = 0;
            while (Marshal.ReadByte(texto, largo) != 0) largo++;
            var bytes = new byte[largo];
            Marshal.Copy(texto, bytes, 0, largo);
            return Encoding.UTF8.GetString(bytes);
        }
    }

    /// <summary>La impresora, de EP_Init a EP_Kill: una por programa, y un hilo por vez. Lo que pasa del largo que la
    /// función lee se corta. Los métodos se llaman como las funciones de Kestra.cs, que dice qué hace cada una.</summary>
    public sealed class Impresora : IDisposable
    {
        private readonly int textos = Kestra_Textos(2);  // cómo se pasaban antes; desde aquí, UTF-8 terminado en cero

        public Impresora()
        {
            if (EP_Init() == 1) return;
            var error = new ErrorFiscal("EP_Init");
            Kestra_Textos(textos);
            throw error;
        }

        public void Dispose()
        {
            EP_Kill();
            Kestra_Textos(textos);
        }

        private static KestraOperador operador;  // que sus funciones vivan mientras la biblioteca las use

        /// <summary>Contesta en lugar de los cuadros; null vuelve a los cuadros.</summary>
        public void DefinirOperador(Operador nuevo)
        {
            var registro = nuevo == null ? new KestraOperador() : nuevo.Registro();
            if (nuevo == null) Kestra_DefinirOperador(IntPtr.Zero);
            else Kestra_DefinirOperador(ref registro);
            operador = registro;
        }

        // Comprobantes fiscales.
        public void AbrirComprobanteFiscal(string tipo, string letra, Cliente cliente = null, int copias = 1)
        {
            Cliente c = cliente ?? new Cliente();
            Hecho("EP_AbrirComprobanteFiscal", EP_AbrirComprobanteFiscal(T(tipo), T(letra), T(c.Nombre), T(""),
                T(c.DocumentoTipo), T(c.DocumentoNumero), T(c.ResponsabilidadIva), T(c.Domicilio1), T(c.Domicilio2),
                T(c.Domicilio3), T(c.Linea4), T(c.Linea5), copias));
        }

        public void ImprimirItem(string descripcion, double cantidad, double precio, double iva, string extra1 = "",
            string extra2 = "", string extra3 = "", double impuestosInternos = 0)
        {
            Hecho("EP_ImprimirItem", EP_ImprimirItem(T(descripcion), cantidad, precio, iva, impuestosInternos, T(extra1),
                T(extra2), T(extra3)));
        }

        public void AnularItem(string descripcion, double cantidad, double precio, double iva, string extra1 = "",
            string extra2 = "", string extra3 = "", double impuestosInternos = 0)
        {
            Hecho("EP_AnularItem", EP_AnularItem(T(descripcion), cantidad, precio, iva, impuestosInternos, T(extra1),
                T(extra2), T(extra3)));
        }

        public void ImprimirTextoFiscal(string texto) { Hecho("EP_ImprimirTextoFiscal", EP_ImprimirTextoFiscal(T(texto))); }

        /// <summary>Da el número del comprobante.</summary>
        public string CerrarComprobanteFiscal(string tipo, string letra)
        {
            return Recibido("EP_CerrarComprobanteFiscal", 8, numero => EP_CerrarComprobanteFiscal(T(tipo), T(letra), numero));
        }

        public void Cancelar() { Hecho("EP_Cancelar", EP_Cancelar()); }

        // Totales y pagos.
        public void DescuentoGeneral(string descripcion, double monto)
        {
            Hecho("EP_DescuentoGeneral", EP_DescuentoGeneral(T(descripcion), monto));
        }

        public void RecargoGeneral(string descripcion, double monto)
        {
            Hecho("EP_RecargoGeneral", EP_RecargoGeneral(T(descripcion), monto));
        }

        public void EspecificarPercepcionGlobal(string descripcion, double monto, double iva, string calificador)
        {
            Hecho("EP_EspecificarPercepcionGlobal",
                EP_EspecificarPercepcionGlobal(T(descripcion), monto, iva, T(calificador)));
        }

        public void ImprimirPago(string descripcion, double monto)
        {
            Hecho("EP_ImprimirPago", EP_ImprimirPago(T(descripcion), monto));
        }

        public void AjusteRedondeo(double total) { Hecho("EP_AjusteRedondeo", EP_AjusteRedondeo(total)); }

        // Otros documentos.
        public void AbrirComprobanteNoFiscalHomologado(string tipo, string marca1, string linea1, string linea2,
            string documentoTipo, string documentoNumero, string marca2, string domicilio, string linea4 = "",
            string linea5 = "", string linea6 = "", string linea7 = "", int cantidad = 1)
        {
            Hecho("EP_AbrirComprobanteNoFiscalHomologado", EP_AbrirComprobanteNoFiscalHomologado(T(tipo), T(marca1),
                T(linea1), T(linea2), T(documentoTipo), T(documentoNumero), T(marca2), T(domicilio), T(linea4), T(linea5),
                T(linea6), T(linea7), cantidad));
        }

        public void CerrarComprobanteNoFiscalHomologado(string tipo, string marca)
        {
            Hecho("EP_CerrarComprobanteNoFiscalHomologado", EP_CerrarComprobanteNoFiscalHomologado(T(tipo), T(marca)));
        }

        public void AbrirComprobanteNoFiscal() { Hecho("EP_AbrirComprobanteNoFiscal", EP_AbrirComprobanteNoFiscal()); }
        public void ImprimirTextoNoFiscal(string texto) { Hecho("EP_ImprimirTextoNoFiscal", EP_ImprimirTextoNoFiscal(T(texto))); }
        public void CerrarComprobanteNoFiscal() { Hecho("EP_CerrarComprobanteNoFiscal", EP_CerrarComprobanteNoFiscal()); }

        // Informes. Las fechas son AAMMDD.
        public void ReporteX() { Hecho("EP_ReporteX", EP_ReporteX()); }
        public void ReporteZ() { Hecho("EP_ReporteZ", EP_ReporteZ()); }
        public void ReporteZporNumeros(int primero, int ultimo) { Hecho("EP_ReporteZporNumeros", EP_ReporteZporNumeros(primero, ultimo, 0)); }
        public void ReporteZporFechas(string desde, string hasta) { Hecho("EP_ReporteZporFechas", EP_ReporteZporFechas(T(desde), T(hasta), 0)); }

        // El equipo. Las fechas son AAMMDD y las horas, HHMMSS.
        public void AbrirCajonDeDinero(int cajon = 1) { Hecho("EP_AbrirCajonDeDinero", EP_AbrirCajonDeDinero(cajon)); }
        public void CambiarFechaHora(string fecha, string hora) { Hecho("EP_CambiarFechaHora", EP_CambiarFechaHora(T(fecha), T(hora))); }
        public string ObtenerFechaHora() { return Recibido("EP_ObtenerFechaHora", 12, EP_ObtenerFechaHora); }
        public void SetEncabezado(string texto, int linea, int atributo = 0) { Hecho("EP_SetEncabezado", EP_SetEncabezado(T(texto), linea, atributo)); }
        public string GetEncabezado(int linea) { return Recibido("EP_GetEncabezado", 120, texto => EP_GetEncabezado(texto, linea)); }
        public void CortaPapel() { Hecho("EP_CortaPapel", EP_CortaPapel()); }
        public void AvanzaPapel(int lineas) { Hecho("EP_AvanzaPapel", EP_AvanzaPapel(lineas)); }
        public string ValoresModelo() { return Recibido("EP_ValoresModelo", 64, EP_ValoresModelo); }
        public string Numeracion() { return Recibido("EP_Numeracion", 80, EP_Numeracion); }
        public string AutodetectarModelo() { return Recibido("EP_AutodetectarModelo", 14, EP_AutodetectarModelo); }

        // Qué fue de la última llamada, y lo que quedó pendiente de una anterior. Un texto vacío es que no hay.
        public int Desenlace() { return Kestra_Desenlace(); }
        public int Causa() { return Kestra_Causa(); }
        public string CausaTexto() { return TextoDe(Kestra_CausaTexto); }
        public string Respuesta(int numero) { return Pedido("Kestra_Respuesta", (texto, largo) => Kestra_Respuesta(numero, texto, largo)); }
        public int Intentos() { return Kestra_Intentos(); }
        public void Estado() { Hecho("Kestra_Estado", Kestra_Estado()); }
        public int DocumentoAbierto() { return Sabido("Kestra_DocumentoAbierto", Kestra_DocumentoAbierto()); }
        public string Subtotal() { return Pedido("Kestra_Subtotal", Kestra_Subtotal); }
        /// <summary>Kestra_Numeracion.</summary>
        public string UltimoNumero(int clase, char letra = '\0') { return Pedido("Kestra_Numeracion", (texto, largo) => Kestra_Numeracion(clase, letra, texto, largo)); }
        /// <summary>La llamada, con sus argumentos.</summary>
        public string Pendiente() { return Pedido("Kestra_Pendiente", Kestra_Pendiente); }
        public int Resolver() { return Sabido("Kestra_Resolver", Kestra_Resolver()); }
        public string ResolverNumero() { return Pedido("Kestra_ResolverNumero", Kestra_ResolverNumero); }
        public int Olvidar() { return Sabido("Kestra_Olvidar", Kestra_Olvidar()); }

        private static void Hecho(string llamada, int resultado)
        {
            if (resultado != 0) throw new ErrorFiscal(llamada);
        }

        // -1: no se puede saber ahora.
        private static int Sabido(string llamada, int resultado)
        {
            if (resultado == -1) throw new ErrorFiscal(llamada);
            return resultado;
        }

        private static string Pedido(string llamada, Func<byte[], int, int> pedir)
        {
            return TextoDe((texto, largo) => Sabido(llamada, pedir(texto, largo)));
        }

        private static byte[] T(string texto) { return Encoding.UTF8.GetBytes(texto + "\0"); }

        private static string Hasta(byte[] bytes, int largo)
        {
            int cero = Array.IndexOf(bytes, (byte)0);
            return Encoding.UTF8.GetString(bytes, 0, cero < 0 ? largo : Math.Min(cero, largo));
        }

        private static string Recibido(string llamada, int largo, Func<byte[], int> llamar)
        {
            var bytes = new byte[largo];
            Hecho(llamada, llamar(bytes));
            return Hasta(bytes, largo);
        }

        internal static string TextoDe(Func<byte[], int, int> pedir)
        {
            var bytes = new byte[1024];
            int largo = pedir(bytes, bytes.Length);
            return largo <= 0 ? "" : Hasta(bytes, bytes.Length);
        }

        /// <summary>Para ejemplos y pruebas: sin --impresora-real termina el programa (2) si la impresora de ./Fiscal.ini
        /// no es virtual.</summary>
        public static void ExigirImpresoraVirtual(string[] argumentos)
        {
            if (Array.IndexOf(argumentos, "--impresora-real") >= 0) return;
            bool alguna = false, todas = true;
            string ini = File.Exists("Fiscal.ini") ? File.ReadAllText("Fiscal.ini", Encoding.GetEncoding("iso-8859-1")) : "";
            foreach (Match clave in Regex.Matches(ini, @"^\s*ImpresoraDispositivo\s*=([^\r\n]*)", RegexOptions.Multiline | RegexOptions.IgnoreCase))
            {
                alguna = true;
                todas = todas && EsVirtual(clave.Groups[1].Value.Trim());
            }
            // La variable KESTRA_DISPOSITIVO se antepone a Fiscal.ini: con ella no.
            if (alguna && todas && string.IsNullOrEmpty(Environment.GetEnvironmentVariable("KESTRA_DISPOSITIVO"))) return;
            Console.Error.WriteLine("La impresora de Fiscal.ini no es virtual: para usarla igual, --impresora-real.");
            Environment.Exit(2);
        }

        /// <summary>Si es una dirección de esta máquina, un pipe con nombre o una pseudoterminal.</summary>
        public static bool EsVirtual(string dispositivo)
        {
            if (Regex.IsMatch(dispositivo, @"\Atcp:(127(\.[0-9]{1,3}){3}|localhost|\[?::1\]?):[0-9]+\z")) return true;
            if (dispositivo.StartsWith(@"\\.\pipe\", StringComparison.Ordinal)) return true;
            if (Path.DirectorySeparatorChar != '/') return false;
            var real = new byte[4096];
            return realpath(T(dispositivo), real) != IntPtr.Zero && Regex.IsMatch(Hasta(real, real.Length), @"\A/dev/pts/[0-9]+\z");
        }

        [DllImport("libc.so.6")]
        private static extern IntPtr realpath(byte[] ruta, byte[] real);
    }
}
