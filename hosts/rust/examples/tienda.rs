// Una jornada: una factura A, su nota de crédito, una hoja sin valor fiscal, el informe X y el cierre Z.
// Se corre donde hay un Fiscal.ini de una impresora de tique factura (TipoComprobante=TF).
use kestra::{exigir_impresora_virtual, Cliente, Impresora, Item, Resultado};

// Se escribe después de cada llamada: si una falla, el error llega antes.
fn listo(paso: &str) {
    println!("{:<52} ok", paso);
}

fn factura(impresora: &mut Impresora, cliente: &Cliente) -> Resultado<()> {
    impresora.abrir_comprobante_fiscal("FC", "A", cliente, 1)?;
    listo("EP_AbrirComprobanteFiscal         factura A");
    let resma = Item { descripcion: "Resma A4 75 g", cantidad: 10.0, precio: 320.00, iva: 21.0, ..Item::default() };
    impresora.imprimir_item(&Item { extras: ["Caja cerrada", "", ""], ..resma })?;
    listo("EP_ImprimirItem                   10 x 320,00 (21%)");
    let diccionario = Item { descripcion: "Diccionario", cantidad: 2.0, precio: 4500.00, iva: 10.5, ..Item::default() };
    impresora.imprimir_item(&diccionario)?;
    listo("EP_ImprimirItem                   2 x 4500,00 (10,5%)");
    impresora.descuento_general("Descuento contado", 200.00)?;
    listo("EP_DescuentoGeneral               -200,00");
    impresora.especificar_percepcion_global("Percepcion IIBB", 150.00, 0.0, "O")?;
    listo("EP_EspecificarPercepcionGlobal    150,00");
    impresora.imprimir_pago("Transferencia", 20000.00)?;
    listo("EP_ImprimirPago                   20000,00");
    let numero = impresora.cerrar_comprobante_fiscal("FC", "A")?;
    listo("EP_CerrarComprobanteFiscal");
    println!("Factura A emitida: {}", numero);
    Ok(())
}

fn nota_de_credito(impresora: &mut Impresora, cliente: &Cliente) -> Resultado<()> {
    impresora.abrir_comprobante_fiscal("NC", "A", cliente, 1)?;
    listo("EP_AbrirComprobanteFiscal         nota de credito A");
    let diccionario = Item { descripcion: "Diccionario", cantidad: 1.0, precio: 4500.00, iva: 10.5, ..Item::default() };
    impresora.imprimir_item(&Item { extras: ["Devolucion", "", ""], ..diccionario })?;
    listo("EP_ImprimirItem                   1 x 4500,00 (10,5%)");
    let numero = impresora.cerrar_comprobante_fiscal("NC", "A")?;
    listo("EP_CerrarComprobanteFiscal");
    println!("Nota de credito A emitida: {}", numero);
    Ok(())
}

fn hoja_no_fiscal(impresora: &mut Impresora) -> Resultado<()> {
    impresora.abrir_comprobante_no_fiscal()?;
    listo("EP_AbrirComprobanteNoFiscal");
    impresora.imprimir_texto_no_fiscal("Retirar por deposito")?;
    listo("EP_ImprimirTextoNoFiscal");
    impresora.cerrar_comprobante_no_fiscal()?;
    listo("EP_CerrarComprobanteNoFiscal");
    Ok(())
}

fn jornada() -> Resultado<()> {
    let cliente = Cliente {
        nombre: "Libreria Muñoz S.R.L.",
        documento_tipo: "CUIT",
        documento_numero: "30000000007",
        responsabilidad_iva: "I",
        domicilio: ["Belgrano 1234", "", ""],
        ..Cliente::default()
    };
    let mut impresora = Impresora::abrir()?;
    impresora.set_encabezado("Gracias por su compra", 1, 0)?;
    listo("EP_SetEncabezado");
    factura(&mut impresora, &cliente)?;
    nota_de_credito(&mut impresora, &cliente)?;
    hoja_no_fiscal(&mut impresora)?;
    impresora.reporte_x()?;
    listo("EP_ReporteX");
    impresora.reporte_z()?;
    listo("EP_ReporteZ");
    Ok(())
}

fn main() {
    exigir_impresora_virtual();
    if let Err(error) = jornada() {
        eprintln!("{}: {}", error.llamada, error);
        std::process::exit(1);
    }
}
