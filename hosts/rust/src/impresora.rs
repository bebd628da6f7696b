use crate::declaraciones::*;
use crate::error::{ErrorFiscal, Resultado};
use crate::operador::{registro, Operador, Propio};
use crate::textos::{hasta_el_cero, t, texto_de};
use std::marker::PhantomData;

/// A quién se le hace el comprobante. Sin nada es un consumidor final.
#[derive(Clone, Copy, Debug)]
pub struct Cliente<'a> {
    pub nombre: &'a str,
    pub documento_tipo: &'a str,
    pub documento_numero: &'a str,
    pub responsabilidad_iva: &'a str,
    pub domicilio: [&'a str; 3],
    pub linea4: &'a str,
    pub linea5: &'a str,
}

impl Default for Cliente<'_> {
    fn default() -> Self {
        Cliente {
            nombre: "",
            documento_tipo: "",
            documento_numero: "",
            responsabilidad_iva: "F",
            domicilio: [""; 3],
            linea4: "",
            linea5: "",
        }
    }
}

/// Una línea de venta.
#[derive(Clone, Copy, Debug, Default)]
pub struct Item<'a> {
    pub descripcion: &'a str,
    pub cantidad: f64,
    pub precio: f64,
    pub iva: f64,
    pub impuestos_internos: f64,
    pub extras: [&'a str; 3],
}

/// La impresora, de EP_Init (`abrir`) a EP_Kill (al soltarla): una por programa, y en el hilo que la abrió. Lo que pasa del
/// largo que la función lee se corta. Los métodos se llaman como las funciones de `declaraciones`, que dice qué hace cada una.
pub struct Impresora {
    textos: i32,                          // cómo se pasaban antes; desde aquí, UTF-8 terminado en cero
    un_solo_hilo: PhantomData<*const ()>, // no pasa a otro
    operador: Option<Box<Propio>>,
}

impl Drop for Impresora {
    fn drop(&mut self) {
        unsafe {
            EP_Kill();
            Kestra_DefinirOperador(std::ptr::null());
            Kestra_Textos(self.textos);
        }
    }
}

fn hecho(llamada: &'static str, resultado: i32) -> Resultado<()> {
    if resultado == 0 {
        Ok(())
    } else {
        Err(ErrorFiscal::de(llamada))
    }
}

/// -1: no se puede saber ahora.
fn sabido(llamada: &'static str, resultado: i32) -> Resultado<i32> {
    if resultado == -1 {
        Err(ErrorFiscal::de(llamada))
    } else {
        Ok(resultado)
    }
}

fn pedido(llamada: &'static str, pedir: impl FnOnce(*mut u8, i32) -> i32) -> Resultado<String> {
    let mut resultado = 0;
    let texto = texto_de(|bytes, largo| {
        resultado = pedir(bytes, largo);
        resultado
    });
    sabido(llamada, resultado).map(|_| texto)
}

fn recibido<const N: usize>(llamada: &'static str, llamar: impl FnOnce(*mut u8) -> i32) -> Resultado<String> {
    let mut bytes = [0u8; N];
    hecho(llamada, llamar(bytes.as_mut_ptr()))?;
    Ok(hasta_el_cero(&bytes))
}

/// Las declaraciones no piden más que punteros a textos que duren la llamada, terminados en cero, y búferes de su largo.
impl Impresora {
    pub fn abrir() -> Resultado<Impresora> {
        let textos = unsafe { Kestra_Textos(2) };
        let impresora = Impresora { textos, un_solo_hilo: PhantomData, operador: None };
        match unsafe { EP_Init() } {
            1 => Ok(impresora),
            _ => Err(ErrorFiscal::de("EP_Init")),
        }
    }

    /// Contesta en lugar de los cuadros, mientras dure la impresora; con None vuelven los cuadros.
    pub fn definir_operador(&mut self, operador: Option<Box<dyn Operador>>) {
        let mut nuevo = operador.map(Box::new);
        let registro = nuevo.as_deref_mut().map(registro);
        unsafe { Kestra_DefinirOperador(registro.as_ref().map_or(std::ptr::null(), |registro| registro)) };
        self.operador = nuevo; // la biblioteca ya no usa el anterior
    }

    // ---- Comprobantes fiscales ----

    pub fn abrir_comprobante_fiscal(&mut self, tipo: &str, letra: &str, c: &Cliente, copias: i32) -> Resultado<()> {
        let [domicilio1, domicilio2, domicilio3] = c.domicilio;
        hecho("EP_AbrirComprobanteFiscal", unsafe {
            EP_AbrirComprobanteFiscal(
                t(tipo).p(), t(letra).p(), t(c.nombre).p(), t("").p(), t(c.documento_tipo).p(), t(c.documento_numero).p(),
                t(c.responsabilidad_iva).p(), t(domicilio1).p(), t(domicilio2).p(), t(domicilio3).p(), t(c.linea4).p(),
                t(c.linea5).p(), copias,
            )
        })
    }

    pub fn imprimir_item(&mut self, item: &Item) -> Resultado<()> {
        let [extra1, extra2, extra3] = item.extras;
        hecho("EP_ImprimirItem", unsafe {
            EP_ImprimirItem(
                t(item.descripcion).p(), item.cantidad, item.precio, item.iva, item.impuestos_internos, t(extra1).p(),
                t(extra2).p(), t(extra3).p(),
            )
        })
    }

    pub fn anular_item(&mut self, item: &Item) -> Resultado<()> {
        let [extra1, extra2, extra3] = item.extras;
        hecho("EP_AnularItem", unsafe {
            EP_AnularItem(
                t(item.descripcion).p(), item.cantidad, item.precio, item.iva, item.impuestos_internos, t(extra1).p(),
                t(extra2).p(), t(extra3).p(),
            )
        })
    }

    pub fn imprimir_texto_fiscal(&mut self, texto: &str) -> Resultado<()> {
        hecho("EP_ImprimirTextoFiscal", unsafe { EP_ImprimirTextoFiscal(t(texto).p()) })
    }

    /// Da el número del comprobante.
    pub fn cerrar_comprobante_fiscal(&mut self, tipo: &str, letra: &str) -> Resultado<String> {
        recibido::<8>("EP_CerrarComprobanteFiscal", |numero| unsafe {
            EP_CerrarComprobanteFiscal(t(tipo).p(), t(letra).p(), numero)
        })
    }

    pub fn cancelar(&mut self) -> Resultado<()> {
        hecho("EP_Cancelar", unsafe { EP_Cancelar() })
    }

    // ---- Totales y pagos ----

    pub fn descuento_general(&mut self, descripcion: &str, monto: f64) -> Resultado<()> {
        hecho("EP_DescuentoGeneral", unsafe { EP_DescuentoGeneral(t(descripcion).p(), monto) })
    }

    pub fn recargo_general(&mut self, descripcion: &str, monto: f64) -> Resultado<()> {
        hecho("EP_RecargoGeneral", unsafe { EP_RecargoGeneral(t(descripcion).p(), monto) })
    }

    pub fn especificar_percepcion_global(
        &mut self, descripcion: &str, monto: f64, iva: f64, calificador: &str,
    ) -> Resultado<()> {
        hecho("EP_EspecificarPercepcionGlobal", unsafe {
            EP_EspecificarPercepcionGlobal(t(descripcion).p(), monto, iva, t(calificador).p())
        })
    }

    pub fn imprimir_pago(&mut self, descripcion: &str, monto: f64) -> Resultado<()> {
        hecho("EP_ImprimirPago", unsafe { EP_ImprimirPago(t(descripcion).p(), monto) })
    }

    pub fn ajuste_redondeo(&mut self, total: f64) -> Resultado<()> {
        hecho("EP_AjusteRedondeo", unsafe { EP_AjusteRedondeo(total) })
    }

    // ---- Otros documentos ----

    /// lineas: de la 4 a la 7.
    #[allow(clippy::too_many_arguments)]
    pub fn abrir_comprobante_no_fiscal_homologado(
        &mut self, tipo: &str, marca1: &str, linea1: &str, linea2: &str, documento_tipo: &str, documento_numero: &str,
        marca2: &str, domicilio: &str, lineas: [&str; 4], cantidad: i32,
    ) -> Resultado<()> {
        let [linea4, linea5, linea6, linea7] = lineas;
        hecho("EP_AbrirComprobanteNoFiscalHomologado", unsafe {
            EP_AbrirComprobanteNoFiscalHomologado(
                t(tipo).p(), t(marca1).p(), t(linea1).p(), t(linea2).p(), t(documento_tipo).p(), t(documento_numero).p(),
                t(marca2).p(), t(domicilio).p(), t(linea4).p(), t(linea5).p(), t(linea6).p(), t(linea7).p(), cantidad,
            )
        })
    }

    pub fn cerrar_comprobante_no_fiscal_homologado(&mut self, tipo: &str, marca: &str) -> Resultado<()> {
        hecho("EP_CerrarComprobanteNoFiscalHomologado", unsafe {
            EP_CerrarComprobanteNoFiscalHomologado(t(tipo).p(), t(marca).p())
        })
    }

    pub fn abrir_comprobante_no_fiscal(&mut self) -> Resultado<()> {
        hecho("EP_AbrirComprobanteNoFiscal", unsafe { EP_AbrirComprobanteNoFiscal() })
    }

    pub fn imprimir_texto_no_fiscal(&mut self, texto: &str) -> Resultado<()> {
        hecho("EP_ImprimirTextoNoFiscal", unsafe { EP_ImprimirTextoNoFiscal(t(texto).p()) })
    }

    pub fn cerrar_comprobante_no_fiscal(&mut self) -> Resultado<()> {
        hecho("EP_CerrarComprobanteNoFiscal", unsafe { EP_CerrarComprobanteNoFiscal() })
    }

    // ---- Informes y equipo: las fechas son AAMMDD y las horas, HHMMSS ----

    pub fn reporte_x(&mut self) -> Resultado<()> {
        hecho("EP_ReporteX", unsafe { EP_ReporteX() })
    }

    pub fn reporte_z(&mut self) -> Resultado<()> {
        hecho("EP_ReporteZ", unsafe { EP_ReporteZ() })
    }

    pub fn reporte_z_por_numeros(&mut self, primero: i32, ultimo: i32) -> Resultado<()> {
        hecho("EP_ReporteZporNumeros", unsafe { EP_ReporteZporNumeros(primero, ultimo, 0) })
    }

    pub fn reporte_z_por_fechas(&mut self, desde: &str, hasta: &str) -> Resultado<()> {
        hecho("EP_ReporteZporFechas", unsafe { EP_ReporteZporFechas(t(desde).p(), t(hasta).p(), 0) })
    }

    pub fn abrir_cajon_de_dinero(&mut self, cajon: i32) -> Resultado<()> {
        hecho("EP_AbrirCajonDeDinero", unsafe { EP_AbrirCajonDeDinero(cajon) })
    }

    pub fn cambiar_fecha_hora(&mut self, fecha: &str, hora: &str) -> Resultado<()> {
        hecho("EP_CambiarFechaHora", unsafe { EP_CambiarFechaHora(t(fecha).p(), t(hora).p()) })
    }

    pub fn obtener_fecha_hora(&mut self) -> Resultado<String> {
        recibido::<12>("EP_ObtenerFechaHora", |texto| unsafe { EP_ObtenerFechaHora(texto) })
    }

    pub fn set_encabezado(&mut self, texto: &str, linea: i32, atributo: i32) -> Resultado<()> {
        hecho("EP_SetEncabezado", unsafe { EP_SetEncabezado(t(texto).p(), linea, atributo) })
    }

    pub fn get_encabezado(&mut self, linea: i32) -> Resultado<String> {
        recibido::<120>("EP_GetEncabezado", |texto| unsafe { EP_GetEncabezado(texto, linea) })
    }

    pub fn corta_papel(&mut self) -> Resultado<()> {
        hecho("EP_CortaPapel", unsafe { EP_CortaPapel() })
    }

    pub fn avanza_papel(&mut self, lineas: i32) -> Resultado<()> {
        hecho("EP_AvanzaPapel", unsafe { EP_AvanzaPapel(lineas) })
    }

    pub fn valores_modelo(&mut self) -> Resultado<String> {
        recibido::<64>("EP_ValoresModelo", |texto| unsafe { EP_ValoresModelo(texto) })
    }

    pub fn numeracion(&mut self) -> Resultado<String> {
        recibido::<80>("EP_Numeracion", |texto| unsafe { EP_Numeracion(texto) })
    }

    pub fn autodetectar_modelo(&mut self) -> Resultado<String> {
        recibido::<14>("EP_AutodetectarModelo", |texto| unsafe { EP_AutodetectarModelo(texto) })
    }

    // ---- Qué fue de la última llamada, y lo que quedó pendiente de una anterior. Un texto vacío es que no hay ----

    pub fn desenlace(&self) -> i32 {
        unsafe { Kestra_Desenlace() }
    }

    pub fn causa(&self) -> i32 {
        unsafe { Kestra_Causa() }
    }

    pub fn causa_texto(&self) -> String {
        texto_de(|texto, largo| unsafe { Kestra_CausaTexto(texto, largo) })
    }

    pub fn respuesta(&self, numero: i32) -> Resultado<String> {
        pedido("Kestra_Respuesta", |texto, largo| unsafe { Kestra_Respuesta(numero, texto, largo) })
    }

    pub fn intentos(&self) -> i32 {
        unsafe { Kestra_Intentos() }
    }

    pub fn estado(&mut self) -> Resultado<()> {
        hecho("Kestra_Estado", unsafe { Kestra_Estado() })
    }

    pub fn documento_abierto(&self) -> Resultado<i32> {
        sabido("Kestra_DocumentoAbierto", unsafe { Kestra_DocumentoAbierto() })
    }

    pub fn subtotal(&mut self) -> Resultado<String> {
        pedido("Kestra_Subtotal", |texto, largo| unsafe { Kestra_Subtotal(texto, largo) })
    }

    /// Kestra_Numeracion. letra: b'A', b'B', b'C', o 0 para lo que no la lleva.
    pub fn ultimo_numero(&mut self, clase: i32, letra: u8) -> Resultado<String> {
        pedido("Kestra_Numeracion", |texto, largo| unsafe { Kestra_Numeracion(clase, letra.into(), texto, largo) })
    }

    /// La llamada, con sus argumentos.
    pub fn pendiente(&mut self) -> Resultado<String> {
        pedido("Kestra_Pendiente", |texto, largo| unsafe { Kestra_Pendiente(texto, largo) })
    }

    pub fn resolver(&mut self) -> Resultado<i32> {
        sabido("Kestra_Resolver", unsafe { Kestra_Resolver() })
    }

    pub fn resolver_numero(&self) -> Resultado<String> {
        pedido("Kestra_ResolverNumero", |texto, largo| unsafe { Kestra_ResolverNumero(texto, largo) })
    }

    pub fn olvidar(&mut self) -> Resultado<i32> {
        sabido("Kestra_Olvidar", unsafe { Kestra_Olvidar() })
    }
}
