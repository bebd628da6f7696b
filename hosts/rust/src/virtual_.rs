use std::fs;

/// Para ejemplos y pruebas: sin --impresora-real termina el programa (2) si la impresora de ./Fiscal.ini no es virtual.
pub fn exigir_impresora_virtual() {
    if std::env::args().skip(1).any(|argumento| argumento == "--impresora-real") {
        return;
    }
    let ini = fs::read("Fiscal.ini").unwrap_or_default();
    let ini = String::from_utf8_lossy(&ini);
    let dispositivos: Vec<&str> = ini
        .lines()
        .filter_map(|linea| linea.split_once('='))
        .filter(|(clave, _)| clave.trim().eq_ignore_ascii_case("ImpresoraDispositivo"))
        .map(|(_, valor)| valor.trim())
        .collect();
    // La variable KESTRA_DISPOSITIVO se antepone a Fiscal.ini: con ella no.
    let otro = std::env::var_os("KESTRA_DISPOSITIVO").map_or(false, |valor| !valor.is_empty());
    if otro || dispositivos.is_empty() || !dispositivos.into_iter().all(es_virtual) {
        eprintln!("La impresora de Fiscal.ini no es virtual: para usarla igual, --impresora-real.");
        std::process::exit(2);
    }
}

/// Si es una dirección de esta máquina, un pipe con nombre o una pseudoterminal.
pub fn es_virtual(dispositivo: &str) -> bool {
    if let Some((equipo, puerto)) = dispositivo.strip_prefix("tcp:").and_then(|donde| donde.rsplit_once(':')) {
        let red: Option<std::net::Ipv4Addr> = equipo.parse().ok();
        return puerto.parse::<u16>().is_ok()
            && (["localhost", "::1", "[::1]"].contains(&equipo) || red.map_or(false, |ip| ip.is_loopback()));
    }
    let real = fs::canonicalize(dispositivo).unwrap_or_default();
    let numero = real.to_str().and_then(|ruta| ruta.strip_prefix("/dev/pts/"));
    dispositivo.starts_with(r"\\.\pipe\") || numero.map_or(false, |numero| numero.parse::<u32>().is_ok())
}
