// Una jornada: una factura A, su nota de crédito, una hoja sin valor fiscal, el informe X y el cierre Z.
// Se corre donde hay un Fiscal.ini de una impresora de tique factura (TipoComprobante=TF).
using System;
using KestraFiscal;

static class Tienda
{
    static readonly Cliente cliente = new Cliente
    {
        Nombre = "Libreria Muñoz S.R.L.", DocumentoTipo = "CUIT", DocumentoNumero = "30000000007",
        ResponsabilidadIva = "I", Domicilio1 = "Belgrano 1234"
    };

    // Se escribe después de cada llamada: si una falla, la excepción llega antes.
    static void Listo(string paso) { Console.WriteLine("{0,-52} ok", paso); }

    static void Factura(Impresora impresora)
    {
        impresora.AbrirComprobanteFiscal("FC", "A", cliente);
        Listo("EP_AbrirComprobanteFiscal         factura A");
        impresora.ImprimirItem("Resma A4 75 g", 10, 320.00, 21.0, "Caja cerrada");
        Listo("EP_ImprimirItem                   10 x 320,00 (21%)");
        impresora.ImprimirItem("Diccionario", 2, 4500.00, 10.5);
        Listo("EP_ImprimirItem                   2 x 4500,00 (10,5%)");
        impresora.DescuentoGeneral("Descuento contado", 200.00);
        Listo("EP_DescuentoGeneral               -200,00");
        impresora.EspecificarPercepcionGlobal("Percepcion IIBB", 150.00, 0.0, "O");
        Listo("EP_EspecificarPercepcionGlobal    150,00");
        impresora.ImprimirPago("Transferencia", 20000.00);
        Listo("EP_ImprimirPago                   20000,00");
        string numero = impresora.CerrarComprobanteFiscal("FC", "A");
        Listo("EP_CerrarComprobanteFiscal");
        Console.WriteLine("Factura A emitida: " + numero);
    }

    static void NotaDeCredito(Impresora impresora)
    {
        impresora.AbrirComprobanteFiscal("NC", "A", cliente);
        Listo("EP_AbrirComprobanteFiscal         nota de credito A");
        impresora.ImprimirItem("Diccionario", 1, 4500.00, 10.5, "Devolucion");
        Listo("EP_ImprimirItem                   1 x 4500,00 (10,5%)");
        string numero = impresora.CerrarComprobanteFiscal("NC", "A");
        Listo("EP_CerrarComprobanteFiscal");
        Console.WriteLine("Nota de credito A emitida: " + numero);
    }

    static void HojaNoFiscal(Impresora impresora)
    {
        impresora.AbrirComprobanteNoFiscal();
        Listo("EP_AbrirComprobanteNoFiscal");
        impresora.ImprimirTextoNoFiscal("Retirar por deposito");
        Listo("EP_ImprimirTextoNoFiscal");
        impresora.CerrarComprobanteNoFiscal();
        Listo("EP_CerrarComprobanteNoFiscal");
    }

    static int Main(string[] argumentos)
    {
        Impresora.ExigirImpresoraVirtual(argumentos);
        try
        {
            using (var impresora = new Impresora())
            {
                impresora.SetEncabezado("Gracias por su compra", 1);
                Listo("EP_SetEncabezado");
                Factura(impresora);
                NotaDeCredito(impresora);
                HojaNoFiscal(impresora);
                impresora.ReporteX();
                Listo("EP_ReporteX");
                impresora.ReporteZ();
                Listo("EP_ReporteZ");
            }
            return 0;
        }
        catch (ErrorFiscal error)
        {
            Console.Error.WriteLine(error.Llamada + ": " + error.Message);
            return 1;
        }
    }
}
