use crate::declaraciones::*;
use crate::textos::texto_de;
use std::fmt;

/// Una llamada que falló. Como texto es la oración para el operador: qué pasó, si se hizo y qué hacer ahora.
#[derive(Clone, Debug)]
pub struct ErrorFiscal {
    /// la función que falló, como "EP_ImprimirItem"
    pub llamada: &'static str,
    /// un número de KESTRA_DESENLACE: si se hizo o no
    pub desenlace: i32,
    /// un número de KESTRA_CAUSA: por qué
    pub causa: i32,
    pub oracion: String,
}

pub type Resultado<T> = Result<T, ErrorFiscal>;

impl ErrorFiscal {
    pub(crate) fn de(llamada: &'static str) -> ErrorFiscal {
        let (desenlace, causa) = unsafe { (Kestra_Desenlace(), Kestra_Causa()) };
        let oracion = texto_de(|texto, largo| unsafe { Kestra_CausaTexto(texto, largo) });
        ErrorFiscal { llamada, desenlace, causa, oracion }
    }
}

impl fmt::Display for ErrorFiscal {
    fn fmt(&self, salida: &mut fmt::Formatter<'_>) -> fmt::Result {
        if self.oracion.is_empty() {
            write!(salida, "{} falló: ver fiscal.log", self.llamada)
        } else {
            salida.write_str(&self.oracion)
        }
    }
}

impl std::error::Error for ErrorFiscal {}
