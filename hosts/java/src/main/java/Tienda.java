// Una jornada: una factura A, su nota de crédito, una hoja sin valor fiscal, el informe X y el cierre Z.
// Se corre donde hay un Fiscal.ini de una impresora de tique factura (TipoComprobante=TF).
import kestra.Cliente;
import kestra.ErrorFiscal;
import kestra.Impresora;

public final class Tienda {
    private static final Cliente CLIENTE =
        new Cliente("Libreria Muñoz S.R.L.", "CUIT", "30000000007", "I", "Belgrano 1234");

    // Se escribe después de cada llamada: si una falla, la excepción llega antes.
    private static void listo(String paso) {
        System.out.printf("%-52s ok%n", paso);
    }

    private static void factura(Impresora impresora) {
        impresora.abrirComprobanteFiscal("FC", "A", CLIENTE);
        listo("EP_AbrirComprobanteFiscal         factura A");
        impresora.imprimirItem("Resma A4 75 g", 10, 320.00, 21.0, "Caja cerrada");
        listo("EP_ImprimirItem                   10 x 320,00 (21%)");
        impresora.imprimirItem("Diccionario", 2, 4500.00, 10.5);
        listo("EP_ImprimirItem                   2 x 4500,00 (10,5%)");
        impresora.descuentoGeneral("Descuento contado", 200.00);
        listo("EP_DescuentoGeneral               -200,00");
        impresora.especificarPercepcionGlobal("Percepcion IIBB", 150.00, 0.0, "O");
        listo("EP_EspecificarPercepcionGlobal    150,00");
        impresora.imprimirPago("Transferencia", 20000.00);
        listo("EP_ImprimirPago                   20000,00");
        String numero = impresora.cerrarComprobanteFiscal("FC", "A");
        listo("EP_CerrarComprobanteFiscal");
        System.out.println("Factura A emitida: " + numero);
    }

    private static void notaDeCredito(Impresora impresora) {
        impresora.abrirComprobanteFiscal("NC", "A", CLIENTE);
        listo("EP_AbrirComprobanteFiscal         nota de credito A");
        impresora.imprimirItem("Diccionario", 1, 4500.00, 10.5, "Devolucion");
        listo("EP_ImprimirItem                   1 x 4500,00 (10,5%)");
        String numero = impresora.cerrarComprobanteFiscal("NC", "A");
        listo("EP_CerrarComprobanteFiscal");
        System.out.println("Nota de credito A emitida: " + numero);
    }

    private static void hojaNoFiscal(Impresora impresora) {
        impresora.abrirComprobanteNoFiscal();
        listo("EP_AbrirComprobanteNoFiscal");
        impresora.imprimirTextoNoFiscal("Retirar por deposito");
        listo("EP_ImprimirTextoNoFiscal");
        impresora.cerrarComprobanteNoFiscal();
        listo("EP_CerrarComprobanteNoFiscal");
    }

    public static void main(String[] argumentos) {
        Impresora.exigirImpresoraVirtual(argumentos);
        try (Impresora impresora = new Impresora()) {
            impresora.setEncabezado("Gracias por su compra", 1);
            listo("EP_SetEncabezado");
            factura(impresora);
            notaDeCredito(impresora);
            hojaNoFiscal(impresora);
            impresora.reporteX();
            listo("EP_ReporteX");
            impresora.reporteZ();
            listo("EP_ReporteZ");
        } catch (ErrorFiscal error) {
            System.err.println(error.llamada() + ": " + error.getMessage());
            System.exit(1);
        }
    }
}
