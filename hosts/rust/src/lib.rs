//! Kestra para Rust: la impresora con `&str`, y un error cuando una llamada falla. Debajo, las declaraciones.
pub mod declaraciones;
mod error;
mod impresora;
mod operador;
mod textos;
mod virtual_;

pub use error::{ErrorFiscal, Resultado};
pub use impresora::{Cliente, Impresora, Item};
pub use operador::{Fila, Operador};
pub use virtual_::{es_virtual, exigir_impresora_virtual};
