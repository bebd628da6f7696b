//! Cómo viajan los textos: en UTF-8, terminados en cero.

/// Un texto mientras dura la llamada.
pub(crate) struct Texto(Vec<u8>);

pub(crate) fn t(texto: &str) -> Texto {
    let mut bytes = texto.as_bytes().to_vec();
    bytes.push(0);
    Texto(bytes)
}

impl Texto {
    pub(crate) fn p(&self) -> *const u8 {
        self.0.as_ptr()
    }
}

/// Lo que hay en un búfer hasta el primer cero.
pub(crate) fn hasta_el_cero(bytes: &[u8]) -> String {
    let largo = bytes.iter().position(|&byte| byte == 0).unwrap_or(bytes.len());
    String::from_utf8_lossy(&bytes[..largo]).into_owned()
}

/// Un texto que la biblioteca da.
pub(crate) fn texto_de(pedir: impl FnOnce(*mut u8, i32) -> i32) -> String {
    let mut bytes = [0u8; 1024];
    if pedir(bytes.as_mut_ptr(), bytes.len() as i32) <= 0 {
        return String::new();
    }
    hasta_el_cero(&bytes)
}
