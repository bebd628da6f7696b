"""The days of the till that the pages of the operations are made from: each export is called at least once."""
import dataclasses


@dataclasses.dataclass(frozen=True)
class Day:
    name: str
    family: str
    calls: tuple  # (name, values)
    settings: dict = dataclasses.field(default_factory=dict)
    options: tuple = ()


INVOICE = ("FC", "A", "Libreria Muñoz S.R.L.", "", "CUIT", "30000000007", "I", "Belgrano 1234", "", "", "", "", 1)
ROUNDED = ("FC", "B", "", "", "", "", "F", "", "", "", "", "", 1)


def days(table):
    """Values are the examples of the table where they are not given."""
    examples = {row.name: row.example for row in table.functions}

    def calls(*wanted):
        return tuple((each, examples[each]) if isinstance(each, str) else each for each in wanted)

    nothing = [row.name for row in table.functions if row.nature in ("nothing", "components", "beside")
               and row.name != "Kestra_DefinirOperador"]
    return (
        Day("jornada", "TF", calls(
            "Kestra_DefinirOperador", ("Kestra_Textos", (-1,)), "EP_Init", "EP_AutodetectarModelo", "EP_ValoresModelo",
            ("EP_CambiarFechaHora", ("261121", "103000")), "EP_ObtenerFechaHora", "EP_SetEncabezado", "EP_GetEncabezado",
            ("EP_AbrirComprobanteFiscal", INVOICE), "EP_ImprimirTextoFiscal", "EP_ImprimirTextoFiscalInterna",
            "EP_ImprimirItem", "EP_AnularItem", "EP_DescuentoGeneral", "EP_RecargoGeneral",
            "EP_EspecificarPercepcionGlobal", "Kestra_Subtotal", "Kestra_DocumentoAbierto", "EP_ImprimirPago",
            "EP_CerrarComprobanteFiscal", "Kestra_Desenlace", "Kestra_Causa", "Kestra_CausaTexto",
            ("Kestra_Respuesta", (3, 40)), "Kestra_Intentos", ("Kestra_Numeracion", (1, 65, 10)), "EP_Numeracion",
            ("EP_AbrirComprobanteFiscal", INVOICE), "EP_ImprimirItem", "EP_Cancelar",
            "EP_AbrirComprobanteNoFiscal", "EP_ImprimirTextoNoFiscal", "EP_CerrarComprobanteNoFiscal",
            "EP_AbrirCajonDeDinero", "EP_AvanzaPapel", "EP_CortaPapel", "EP_ReporteX", "EP_ReporteZ",
            "EP_ReporteZporNumeros", ("EP_ReporteZporFechas", ("261101", "261130", 0)), "Kestra_Estado",
            "Kestra_Pendiente", "Kestra_Resolver", "Kestra_ResolverNumero", "Kestra_Olvidar", *nothing, "EP_Kill")),
        Day("redondeo", "TF", calls(
            "EP_Init", ("EP_AbrirComprobanteFiscal", ROUNDED), ("EP_ImprimirItem", ("Cafe", 3, 33.33, 21, 0, "", "", "")),
            ("EP_AjusteRedondeo", (100,)), ("EP_ImprimirPago", ("Efectivo", 100)),
            ("EP_CerrarComprobanteFiscal", ("FC", "B")), "EP_Kill"), {"AjusteRedondeo": 1}),
        Day("formulario", "FC", calls(
            "EP_Init",
            ("EP_AbrirComprobanteNoFiscalHomologado",
             ("NC", "A", "Libreria Muñoz S.R.L.", "", "CUIT", "30000000007", "I", "Belgrano 1234", "", "", "", "", 1)),
            "EP_ImprimirItem", "EP_CerrarComprobanteNoFiscalHomologado", "EP_Kill")),
    )
