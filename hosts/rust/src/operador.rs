use crate::declaraciones::*;
use std::ffi::{c_void, CStr};
use std::panic::{catch_unwind, AssertUnwindSafe};

/// Un renglón del informe de estados.
#[derive(Clone, Debug)]
pub struct Fila {
    /// 0 de la impresora, 1 fiscal
    pub grupo: i32,
    pub numero: i32,
    /// 0 información, 1 error
    pub clase: i32,
    pub encendida: bool,
    pub texto: String,
    pub ayuda: String,
}

/// Quien contesta en lugar de los cuadros de la biblioteca. Si entra en pánico, vale como No o Cerrar.
pub trait Operador {
    /// `estilo`: 0 Aceptar, 4 y 36 Sí/No. Da 1 Aceptar, 6 Sí, 7 No.
    fn mensaje(&mut self, texto: &str, titulo: &str, estilo: i32) -> i32;
    /// Da si mandar otra vez.
    fn informe_estados(&mut self, impresora: &str, fiscal: &str, filas: &[Fila]) -> bool;
    fn memoria_llena(&mut self);
}

/// Lo que vuelve en cada llamada como `contexto`.
pub(crate) type Propio = Box<dyn Operador>;

/// El registro de la biblioteca para un operador que no se mueve mientras ella lo use.
pub(crate) fn registro(operador: &mut Propio) -> KestraOperador {
    KestraOperador {
        tamano: std::mem::size_of::<KestraOperador>() as u32,
        contexto: operador as *mut Propio as *mut c_void,
        mensaje: Some(mensaje),
        informe_estados: Some(informe_estados),
        memoria_llena: Some(memoria_llena),
    }
}

/// A través de la biblioteca no puede salir un pánico.
fn sin_caer<T: Default>(contestar: impl FnOnce() -> T) -> T {
    catch_unwind(AssertUnwindSafe(contestar)).unwrap_or_default()
}

/// Un texto de la biblioteca, que dura la llamada.
unsafe fn texto_en(texto: *const u8) -> String {
    CStr::from_ptr(texto.cast()).to_string_lossy().into_owned()
}

unsafe extern "system" fn mensaje(contexto: *mut c_void, texto: *const u8, titulo: *const u8, estilo: i32) -> i32 {
    sin_caer(|| (*contexto.cast::<Propio>()).mensaje(&texto_en(texto), &texto_en(titulo), estilo))
}

unsafe extern "system" fn informe_estados(
    contexto: *mut c_void, impresora: *const u8, fiscal: *const u8, filas: *const KestraFila, cantidad: i32,
) -> i32 {
    sin_caer(|| {
        let suyas = std::slice::from_raw_parts(filas, cantidad as usize);
        let propias: Vec<Fila> = suyas.iter().map(|fila| propia(fila)).collect();
        let operador = &mut *contexto.cast::<Propio>();
        operador.informe_estados(&texto_en(impresora), &texto_en(fiscal), &propias) as i32
    })
}

unsafe extern "system" fn memoria_llena(contexto: *mut c_void) {
    sin_caer(|| (*contexto.cast::<Propio>()).memoria_llena())
}

unsafe fn propia(fila: &KestraFila) -> Fila {
    Fila {
        grupo: fila.grupo,
        numero: fila.numero,
        clase: fila.clase,
        encendida: fila.encendida != 0,
        texto: texto_en(fila.texto),
        ayuda: texto_en(fila.ayuda),
    }
}
